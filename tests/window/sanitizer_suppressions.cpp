// What the sanitizers report of libraries that were built without them. They lock with calls that
// the thread sanitizer does not see, and keep some memory to the end of the process.
extern "C" {

const char* __tsan_default_suppressions();
const char* __lsan_default_suppressions();

const char* __tsan_default_suppressions() {
    return "race:libfontconfig.so\n"
           "race:libpangoft2-1.0.so\n"
           "race:libglib-2.0.so\n";
}

const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n"
           "leak:libpango\n"
           "leak:libglib-2.0.so\n"
           "leak:libgobject-2.0.so\n"
           "leak:libgtk-x11-2.0.so\n"
           "leak:libgdk-x11-2.0.so\n";
}

}  // extern "C"

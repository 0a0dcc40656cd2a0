// A program started by a test, with pipes on its standard streams. Belongs to the test's thread.
#pragma once

#include <sys/types.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zt::headless {

struct ProcessOptions {
    std::string program;  // a path; no search
    std::string name;     // argv[0]; empty: the path
    std::vector<std::string> arguments;
    std::string directory;                           // where it starts; empty: the test's own
    bool removeDirectory = false;                    // it is gone before the program starts
    std::map<std::string, std::string> environment;  // all of it
    std::optional<uid_t> user;  // only root can choose; the group gets the same number
};

class ChildProcess {
public:
    // False, with the reason on the test's standard error, when the program cannot be started.
    bool Start(const ProcessOptions& options);
    ~ChildProcess();  // kills what still runs

    ChildProcess() = default;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t Id() const { return id; }
    int InputFd() const { return input; }    // write here, it does not block; -1: closed
    int OutputFd() const { return output; }  // read here; -1: the end was reached
    int ErrorFd() const { return errors; }
    void CloseInput();
    void CloseOutput();
    void CloseErrors();
    void Kill();

    // True when the program has ended; it is waited for no further.
    bool HasEnded();
    // The exit status, or minus the number of the signal. Only after HasEnded.
    int Status() const { return status; }
    // Bytes that wait in the pipe to the program's input.
    int UnreadInput() const;
    // The largest memory that the program had, in kilobytes. Only after HasEnded.
    long PeakKilobytes() const { return peakKilobytes; }

    // True when every thread of the program and of its children sleeps, and slept all the while
    // between two looks: the program waits for something from outside.
    bool IsWaiting() const;

private:
    pid_t id = -1;
    int input = -1;
    int output = -1;
    int errors = -1;
    bool ended = false;
    int status = 0;
    long peakKilobytes = 0;
};

// The largest memory so far of a program that runs, in kilobytes; 0 when it is gone.
long PeakKilobytesOf(pid_t id);
// As ChildProcess::IsWaiting, for any process.
bool IsProcessWaiting(pid_t id);

}  // namespace zt::headless

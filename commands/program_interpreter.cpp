#include "commands/program_interpreter.h"

#include <elf.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bit>
#include <climits>
#include <cstring>

namespace zt {

namespace {

constexpr int kMostHeaders = 256;

// Whole or not at all.
bool ReadAt(int descriptor, void* target, size_t n, uint64_t offset) {
    if (offset > static_cast<uint64_t>(INT64_MAX) - n) return false;
    return pread(descriptor, target, n, static_cast<off_t>(offset)) == static_cast<ssize_t>(n);
}

bool ReadText(int descriptor, uint64_t offset, uint64_t size, std::string& text) {
    if (size < 2 || size > PATH_MAX) return false;
    text.resize(size);
    if (!ReadAt(descriptor, text.data(), size, offset)) return false;
    text.resize(strlen(text.c_str()));
    return !text.empty();
}

template <class Header, class ProgramHeader>
bool FindInterpreter(int descriptor, std::string& interpreter) {
    Header header = {};
    if (!ReadAt(descriptor, &header, sizeof header, 0)) return false;
    if (header.e_phentsize != sizeof(ProgramHeader)) return false;
    for (int i = 0; i < header.e_phnum && i < kMostHeaders; i++) {
        ProgramHeader program = {};
        const uint64_t place = header.e_phoff + static_cast<uint64_t>(i) * sizeof program;
        if (!ReadAt(descriptor, &program, sizeof program, place)) return false;
        if (program.p_type == PT_INTERP)
            return ReadText(descriptor, program.p_offset, program.p_filesz, interpreter);
    }
    return false;
}

bool ReadFrom(int descriptor, std::string& interpreter) {
    constexpr unsigned char kOwnOrder =
        std::endian::native == std::endian::little ? ELFDATA2LSB : ELFDATA2MSB;
    struct stat found = {};
    if (fstat(descriptor, &found) != 0 || !S_ISREG(found.st_mode)) return false;
    unsigned char identity[EI_NIDENT] = {};
    if (!ReadAt(descriptor, identity, sizeof identity, 0)) return false;
    if (memcmp(identity, ELFMAG, SELFMAG) != 0 || identity[EI_DATA] != kOwnOrder) return false;
    switch (identity[EI_CLASS]) {
        case ELFCLASS32:
            return FindInterpreter<Elf32_Ehdr, Elf32_Phdr>(descriptor, interpreter);
        case ELFCLASS64:
            return FindInterpreter<Elf64_Ehdr, Elf64_Phdr>(descriptor, interpreter);
        default:
            return false;
    }
}

}  // namespace

bool ReadInterpreter(const char* path, std::string& interpreter) {
    const int descriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return false;
    const bool ok = ReadFrom(descriptor, interpreter);
    close(descriptor);
    return ok;
}

}  // namespace zt

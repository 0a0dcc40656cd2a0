// The wire takes the standard streams for itself: nothing else gets in or out of them.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>

#include "console/wire/standard_streams.h"

namespace zt {
namespace {

std::string ReadToEnd(int descriptor) {
    std::string all;
    char piece[256];
    for (ssize_t got = 0; (got = read(descriptor, piece, sizeof(piece))) > 0;)
        all.append(piece, static_cast<size_t>(got));
    return all;
}

// In a process of its own, whose streams are the pipes: what it finds, as its status.
[[noreturn]] void RunOnPipes(int in, int out, int error) {
    dup2(in, STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(error, STDERR_FILENO);
    WireDescriptors wire;
    if (!ClaimStandardStreams(wire)) _exit(1);
    if ((fcntl(wire.input, F_GETFD) & FD_CLOEXEC) == 0) _exit(2);
    if ((fcntl(wire.output, F_GETFD) & FD_CLOEXEC) == 0) _exit(3);
    char byte = 0;
    if (read(STDIN_FILENO, &byte, 1) != 0) _exit(4);  // empty
    if (write(wire.output, "frame", 5) != 5) _exit(5);
    std::printf("printed ");
    std::fflush(stdout);
    // A program started from here neither reads nor writes frames.
    if (std::system("cat; echo child") != 0) _exit(6);
    char text[8] = {};
    if (read(wire.input, text, sizeof(text)) != 5) _exit(7);
    _exit(std::string(text) == "input" ? 0 : 8);
}

TEST(WireStandardStreams, CarryFramesAndNothingElse) {
    int in[2], out[2], error[2];
    for (int* ends : {in, out, error})
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    ASSERT_EQ(write(in[1], "input", 5), 5);
    std::fflush(nullptr);  // what waits to be printed is not the child's
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) RunOnPipes(in[0], out[1], error[1]);
    for (const int descriptor : {in[0], in[1], out[1], error[1]})
        close(descriptor);
    EXPECT_EQ(ReadToEnd(out[0]), "frame");
    EXPECT_EQ(ReadToEnd(error[0]), "printed child\n");
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    close(out[0]);
    close(error[0]);
}

}  // namespace
}  // namespace zt

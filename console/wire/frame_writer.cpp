// The writer of frames, one flush a frame.
#include "console/wire/frame_writer.h"

#include <pthread.h>

#include <csignal>
#include <ctime>

namespace zt {

namespace {

constexpr int kNoOpcode = -1;

// While it lives no handler interrupts a write of this thread: a blocking write then takes all its
// bytes or fails for good, which is what the buffered file relies on. A signal of a pipe without a
// reader does not get out either. The signals that end a process stay open.
class WriteGuard {
public:
    WriteGuard() {
        sigset_t blocked;
        sigfillset(&blocked);
        for (int signal : {SIGTERM, SIGINT, SIGHUP, SIGQUIT})
            sigdelset(&blocked, signal);
        pthread_sigmask(SIG_BLOCK, &blocked, &before_);
    }
    ~WriteGuard() {
        if (sigismember(&before_, SIGPIPE) == 0) {
            sigset_t pipeSignal;
            sigemptyset(&pipeSignal);
            sigaddset(&pipeSignal, SIGPIPE);
            const timespec now{0, 0};
            sigtimedwait(&pipeSignal, nullptr, &now);
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    WriteGuard(const WriteGuard&) = delete;
    WriteGuard& operator=(const WriteGuard&) = delete;

private:
    sigset_t before_;
};

void Write16(StdFile& file, int value) {
    const uint8_t bytes[] = {static_cast<uint8_t>(value & 0xFF),
                             static_cast<uint8_t>(value >> 8 & 0xFF)};
    file.Write(bytes, sizeof(bytes));
}

}  // namespace

void FrameWriter::WriteRequest(Opcode opcode, CParameterList& parameters) {
    WriteFrame(kRequestMagic, static_cast<int>(opcode), parameters);
}

void FrameWriter::WriteReply(CParameterList& parameters) {
    WriteFrame(kReplyMagic, kNoOpcode, parameters);
}

void FrameWriter::WriteEvent(CParameterList& parameters) {
    WriteFrame(kEventMagic, kNoOpcode, parameters);
}

void FrameWriter::WriteFrame(int magic, int opcode, CParameterList& parameters) {
    const MutexHold hold(lock_);
    const WriteGuard guard;
    Write16(output_, magic);
    if (opcode != kNoOpcode) Write16(output_, opcode);
    Write16(output_, parameters.Count());
    for (int i = 0; i < parameters.Count(); i++)
        parameters.Peek(i)->Write(output_);
    output_.Flush();
}

}  // namespace zt

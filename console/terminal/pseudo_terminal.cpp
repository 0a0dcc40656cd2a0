#include "console/terminal/pseudo_terminal.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

namespace zt {

namespace {

// What the Backspace key sends.
constexpr cc_t kEraseByte = 8;

void CloseDescriptor(int& fd) {
    if (fd >= 0) close(fd);
    fd = -1;
}

int OpenSlave(int master) {
    char name[64];
    if (grantpt(master) != 0 || unlockpt(master) != 0) return -1;
    if (ptsname_r(master, name, sizeof name) != 0) return -1;
    return open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
}

}  // namespace

PseudoTerminal::~PseudoTerminal() {
    Close();
}

int PseudoTerminal::Open(int newColumns, int newRows) {
    Close();
    master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (master >= 0) slave = OpenSlave(master);
    if (slave < 0) {
        const int error = errno;
        Close();
        return error != 0 ? error : EIO;
    }
    // Some systems leave these flags out when a master is opened.
    fcntl(master, F_SETFD, FD_CLOEXEC);
    fcntl(master, F_SETFL, fcntl(master, F_GETFL) | O_NONBLOCK);
    SetUpLine();
    SetSize(newColumns, newRows);
    return 0;
}

// A line that programs read without editing of their own takes back what the Backspace key means,
// a character of several bytes as one.
void PseudoTerminal::SetUpLine() {
    termios line;
    if (tcgetattr(slave, &line) != 0) return;
    line.c_cc[VERASE] = kEraseByte;
    line.c_iflag |= IUTF8;
    tcsetattr(slave, TCSANOW, &line);
}

void PseudoTerminal::SetSize(int newColumns, int newRows) {
    if (master < 0 || (newColumns == columns && newRows == rows)) return;
    columns = newColumns;
    rows = newRows;
    winsize size{};
    size.ws_col = static_cast<unsigned short>(columns);
    size.ws_row = static_cast<unsigned short>(rows);
    ioctl(master, TIOCSWINSZ, &size);
}

void PseudoTerminal::CloseSlave() {
    CloseDescriptor(slave);
}

void PseudoTerminal::Close() {
    CloseDescriptor(slave);
    CloseDescriptor(master);
    columns = rows = 0;
}

}  // namespace zt

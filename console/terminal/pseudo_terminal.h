// A pseudo-terminal: the master, which the console reads and writes, and the slave, which a program
// has as its terminal. Owns both descriptors. Neither is handed on to programs by itself, and
// reading and writing the master never blocks.
#pragma once

namespace zt {

class PseudoTerminal {
public:
    PseudoTerminal() = default;
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // 0, or an errno value.
    [[nodiscard]] int Open(int columns, int rows);
    bool IsOpen() const { return master >= 0; }
    int Master() const { return master; }
    int Slave() const { return slave; }

    // Tells the programs on it when the size is another than before.
    void SetSize(int columns, int rows);
    void CloseSlave();
    // Programs that still run on it get a hang-up.
    void Close();

private:
    void SetUpLine();

    int master = -1;
    int slave = -1;
    int columns = 0;
    int rows = 0;
};

}  // namespace zt

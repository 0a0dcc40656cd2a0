// What each request of the wire does on the console. One row an opcode; the rows are called on the
// thread that feeds the connection.
#pragma once

#include "console/console_interface.h"
#include "console/wire/frame_writer.h"
#include "console/wire/parameter.h"

namespace zt {

// The parameters of one request, asked for by position and type. Each question is false when the
// parameter is not there or of another type.
class RequestArguments {
public:
    explicit RequestArguments(CParameterList& list) : list_(list) {}

    int Count() const { return list_.Count(); }
    [[nodiscard]] bool Integer(int index, int& value) const;
    // A coordinate, a width or a count: brought into the range of 16 bits signed, beyond any grid,
    // so that no sum of them overflows.
    [[nodiscard]] bool Cells(int index, int& value) const;
    [[nodiscard]] bool Rectangle(int& column, int& row, int& width, int& height) const;
    [[nodiscard]] bool String(int index, Estring& value) const;
    [[nodiscard]] bool UnicodeString(int index, Westring& value) const;
    [[nodiscard]] bool AttributeAt(int index, Attribute& value) const;
    [[nodiscard]] bool CellStringAt(int index, CellString& value) const;

private:
    CParameterList& list_;
};

// Carries out a request other than the handshake. A request with another number of parameters
// than it wants, or with a wrong type among them, does nothing; where a reply is due it goes out
// all the same (a refused Resize gives 0, a refused ReadCellString no parameter), and a query that
// wants no parameters answers whatever came with it. Opcodes that do not exist are ignored.
void CarryOut(int opcode, CParameterList& parameters, IConsole& console, FrameWriter& writer);

}  // namespace zt

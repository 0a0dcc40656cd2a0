// One marshalled value, and the ordered list of them that a frame carries. A list owns its values
// and belongs to one thread at a time.
#pragma once

#include <cstdint>

#include "console/cell_string.h"
#include "console/wire/wire_format.h"
#include "foundation/estring.h"
#include "foundation/object_store.h"
#include "foundation/std_file.h"
#include "foundation/westring.h"

namespace zt {

class CParameter {
public:
    virtual ParameterType Type() const = 0;
    // Type, length and payload, into the file's buffer. What a payload cannot hold is cut at the
    // end of a character or of a cell.
    virtual void Write(StdFile& file) = 0;
    virtual ~CParameter() = default;
};

class CIntegerParameter : public CParameter {
public:
    explicit CIntegerParameter(int32_t v) : value(v) {}
    ParameterType Type() const override { return ParameterType::kInteger; }
    void Write(StdFile& file) override;
    int32_t value;
};

class CStringParameter : public CParameter {
public:
    explicit CStringParameter(const Estring& v) : value(v) {}
    ParameterType Type() const override { return ParameterType::kString; }
    void Write(StdFile& file) override;
    Estring value;
};

class CUnicodeStringParameter : public CParameter {
public:
    explicit CUnicodeStringParameter(const Westring& v) : value(v) {}
    ParameterType Type() const override { return ParameterType::kUnicodeString; }
    void Write(StdFile& file) override;
    Westring value;
};

class CAttributeParameter : public CParameter {
public:
    explicit CAttributeParameter(Attribute v) : value(v) {}
    ParameterType Type() const override { return ParameterType::kAttribute; }
    void Write(StdFile& file) override;
    Attribute value;
};

class CCellStringParameter : public CParameter {
public:
    explicit CCellStringParameter(const CellString& v) : value(v) {}
    ParameterType Type() const override { return ParameterType::kCellString; }
    void Write(StdFile& file) override;
    CellString value;
};

class CParameterList : public TObjectStore<CParameter> {
public:
    void AddInteger(int32_t value) { Append(new CIntegerParameter(value)); }
    void AddString(const Estring& value) { Append(new CStringParameter(value)); }
    void AddUnicodeString(const Westring& value) { Append(new CUnicodeStringParameter(value)); }
    void AddAttribute(Attribute value) { Append(new CAttributeParameter(value)); }
    void AddCellString(const CellString& value) { Append(new CCellStringParameter(value)); }

    // False, and `value` as it was, for no item and for an item of another type.
    [[nodiscard]] static bool GetInteger(const CParameter* item, int32_t& value);
    [[nodiscard]] static bool GetString(const CParameter* item, Estring& value);
    [[nodiscard]] static bool GetUnicodeString(const CParameter* item, Westring& value);
    [[nodiscard]] static bool GetAttribute(const CParameter* item, Attribute& value);
    [[nodiscard]] static bool GetCellString(const CParameter* item, CellString& value);
};

}  // namespace zt

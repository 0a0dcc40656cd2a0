// Writing the values of a frame, and asking for one by its type.
#include "console/wire/parameter.h"

#include "console/wire/frame_buffer.h"

namespace zt {

namespace {

void WriteBytesTo(StdFile& file, const FrameBuffer& encoded) {
    file.Write(encoded.Data(), encoded.Size());
}

template <class Parameter, class Value>
bool GetValue(const CParameter* item, ParameterType type, Value& value) {
    if (item == nullptr || item->Type() != type) return false;
    value = static_cast<const Parameter*>(item)->value;
    return true;
}

}  // namespace

void CIntegerParameter::Write(StdFile& file) {
    FrameBuffer encoded;
    encoded.AddInteger(value);
    WriteBytesTo(file, encoded);
}

void CStringParameter::Write(StdFile& file) {
    FrameBuffer encoded;
    encoded.AddString(value);
    WriteBytesTo(file, encoded);
}

void CUnicodeStringParameter::Write(StdFile& file) {
    FrameBuffer encoded;
    encoded.AddUnicodeString(value);
    WriteBytesTo(file, encoded);
}

void CAttributeParameter::Write(StdFile& file) {
    FrameBuffer encoded;
    encoded.AddAttribute(value);
    WriteBytesTo(file, encoded);
}

void CCellStringParameter::Write(StdFile& file) {
    FrameBuffer encoded;
    encoded.AddCellString(value.Cells(), value.Length());
    WriteBytesTo(file, encoded);
}

bool CParameterList::GetInteger(const CParameter* item, int32_t& value) {
    return GetValue<CIntegerParameter>(item, ParameterType::kInteger, value);
}

bool CParameterList::GetString(const CParameter* item, Estring& value) {
    return GetValue<CStringParameter>(item, ParameterType::kString, value);
}

bool CParameterList::GetUnicodeString(const CParameter* item, Westring& value) {
    return GetValue<CUnicodeStringParameter>(item, ParameterType::kUnicodeString, value);
}

bool CParameterList::GetAttribute(const CParameter* item, Attribute& value) {
    return GetValue<CAttributeParameter>(item, ParameterType::kAttribute, value);
}

bool CParameterList::GetCellString(const CParameter* item, CellString& value) {
    return GetValue<CCellStringParameter>(item, ParameterType::kCellString, value);
}

}  // namespace zt

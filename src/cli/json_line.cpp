#include "cli/json_line.h"

#include "base/encoding.h"

namespace tarnwick {
namespace {

std::string EscapedControl(char c) {
    constexpr const char* HexDigits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(c);
    return std::string("\\u00") + HexDigits[code >> 4] + HexDigits[code & 15];
}

std::string Escaped(char c) {
    switch (c) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            return static_cast<unsigned char>(c) < 0x20 ? EscapedControl(c) : std::string(1, c);
    }
}

}  // namespace

std::string JsonText(std::string_view text) {
    std::string json = "\"";
    for (const char c : ToValidUtf8(text)) {
        json += Escaped(c);
    }
    return json + '"';
}

CJsonLine& CJsonLine::AddRaw(const char* name, const std::string& json) {
    m_members += (m_members.empty() ? "\"" : ",\"") + std::string(name) + "\":" + json;
    return *this;
}

CJsonLine& CJsonLine::Add(const char* name, std::string_view value) {
    return AddRaw(name, JsonText(value));
}

CJsonLine& CJsonLine::Add(const char* name, const char* value) {
    return Add(name, std::string_view(value));
}

CJsonLine& CJsonLine::Add(const char* name, bool value) {
    return AddRaw(name, value ? "true" : "false");
}

CJsonLine& CJsonLine::Add(const char* name, int value) {
    return AddRaw(name, std::to_string(value));
}

CJsonLine& CJsonLine::Add(const char* name, std::uint64_t value) {
    return AddRaw(name, std::to_string(value));
}

CJsonLine& CJsonLine::Add(const char* name, const std::vector<std::string>& values) {
    std::string list;
    for (const std::string& value : values) {
        list += (list.empty() ? "" : ",") + JsonText(value);
    }
    return AddRaw(name, '[' + list + ']');
}

CJsonLine& CJsonLine::Add(const char* name, const std::vector<CJsonLine>& values) {
    std::string list;
    for (const CJsonLine& value : values) {
        list += (list.empty() ? "" : ",") + value.Object();
    }
    return AddRaw(name, '[' + list + ']');
}

}  // namespace tarnwick

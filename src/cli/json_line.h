#pragma once
// Output for programs: JSON objects, each on a line of its own.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

/// The text in quotes. Whatever bytes it holds, the result is valid JSON on one line: control
/// characters are escaped, bytes that are no UTF-8 become U+FFFD.
std::string JsonText(std::string_view text);

/// Builds one object; its members come out in the order of the calls. Names are plain ASCII literals
/// of ours and are not escaped.
class CJsonLine {
  public:
    CJsonLine& Add(const char* name, std::string_view value);
    /// A literal would turn into a bool without this.
    CJsonLine& Add(const char* name, const char* value);
    CJsonLine& Add(const char* name, bool value);
    CJsonLine& Add(const char* name, int value);
    CJsonLine& Add(const char* name, std::uint64_t value);
    CJsonLine& Add(const char* name, const std::vector<std::string>& values);
    /// A list of objects.
    CJsonLine& Add(const char* name, const std::vector<CJsonLine>& values);

    /// The object with its line end.
    std::string Line() const { return Object() + '\n'; }

  private:
    CJsonLine& AddRaw(const char* name, const std::string& json);
    std::string Object() const { return '{' + m_members + '}'; }

    std::string m_members;
};

}  // namespace tarnwick

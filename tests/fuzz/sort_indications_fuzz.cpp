// Any text as the sort indications of a problem: refused with an exception, or read, written and read
// again as the same items.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/chess_exception.h"

#include "problems/sort_indication.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnwick;
    TSortIndications read;
    try {
        read = ParseSortIndications({reinterpret_cast<const char*>(data), size});
    } catch (const ChessException&) {
        return 0;
    }
    const std::string written = SortIndicationsToText(read);
    const TSortIndications again = ParseSortIndications(written);
    if (again != read || SortIndicationsToText(again) != written) {
        std::abort();
    }
    return 0;
}

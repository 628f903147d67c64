#pragma once
// Numbers of problems as a user writes them: "1,4-9".

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

class CIdList {
  public:
    /// Reads numbers and ranges with commas between them; blanks around each do not count. The empty
    /// text is the empty list. Throws ChessException with a text for the user for anything else: a
    /// number missing, a range that runs backwards, a number beyond an int.
    static CIdList Parse(std::string_view text);

    bool IsEmpty() const { return m_ranges.empty(); }
    /// True also for every number if the list is empty: no list is no restriction.
    bool Contains(int id) const;
    /// Those of the user's ranges that hold none of these numbers, which are sorted: "4-9" or "7".
    std::vector<std::string> RangesWithout(const std::vector<int>& sortedIds) const;

  private:
    struct TRange {
        int first;
        int last;
    };
    static TRange ParseRange(std::string_view text);

    std::vector<TRange> m_ranges;  ///< As the user wrote them: overlaps and any order.
};

}  // namespace tarnwick

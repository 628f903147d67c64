#include "tables/combination_mapping.h"

#include <cassert>

#include "chess/fields.h"

namespace tarnwick {
namespace {

template <int Men>
std::unique_ptr<CMappingCombinationIndexIntoSetBase> MakeMapping(bool bPawns) {
    if (bPawns) {
        return std::make_unique<
            CMappingCombinationIndexIntoSet<PawnFields, Men, unsigned char, FirstPawnField>>();
    }
    return std::make_unique<CMappingCombinationIndexIntoSet<FieldCount, Men, unsigned char, 0>>();
}

}  // namespace

std::unique_ptr<CMappingCombinationIndexIntoSetBase> MakeCombinationMapping(int men, bool bPawns) {
    assert(men >= 2 && men <= 5);
    switch (men) {
        case 2:
            return MakeMapping<2>(bPawns);
        case 3:
            return MakeMapping<3>(bPawns);
        case 4:
            return MakeMapping<4>(bPawns);
        default:
            return MakeMapping<5>(bPawns);
    }
}

}  // namespace tarnwick

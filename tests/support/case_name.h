#pragma once

// The name of a case in a table of cases, for the last argument of INSTANTIATE_TEST_SUITE_P: the
// member `name` of the record, letters and digits only.

#include <gtest/gtest.h>

#include <string>

namespace tarnwick {

inline constexpr auto CaseName = [](const auto& testInfo) {
    return std::string(testInfo.param.name);
};

}  // namespace tarnwick

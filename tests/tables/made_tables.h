#pragma once
// Tables made and verified in folders of a test.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/temp_folder.h"
#include "tables/generation/table_factory.h"
#include "tables/verification/table_verifier.h"

namespace tarnwick {

/// Tells nothing and says no.
class CSilentDialog final : public TUserDialog {
  public:
    void Tell(std::string_view) override {}
    bool Ask(std::string_view) override { return false; }
    void Progress(std::string_view) override {}
};

inline TGenerationSettings TwoThreads() {
    TGenerationSettings settings;
    settings.threads = 2;
    settings.pControl = &NeverStopped;
    return settings;
}

inline unsigned MakeAll(const CTableFolders& folders, const std::string& type) {
    CTableFactory factory(folders, TwoThreads());
    unsigned longest = 0;
    for (const TPlannedTable& planned : factory.Plan({type}, true, false)) {
        const TMadeTable made = factory.Make(planned);
        EXPECT_TRUE(made.bComplete);
        longest = made.longestMate;
    }
    return longest;
}

inline std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline TVerifyCounts Verify(const CTableFolders& folders, const std::string& type,
                            const CTempFolder& logs, TVerifyOptions options = {}) {
    CSilentDialog dialog;
    options.threads = 2;
    options.logFolder = logs.Path();
    options.pControl = &NeverStopped;
    return CTableVerifier(folders, dialog, options).Verify(type);
}

}  // namespace tarnwick

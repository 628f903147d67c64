#include "tables/verification/verify_all.h"

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "tables/open_values.h"
#include "tables/position_type.h"
#include "tables/tables_texts.h"

namespace tarnwick {
namespace {

constexpr int FewestMen = 3;
constexpr int MostMen = static_cast<int>(MaxTypeLetters) + 2;

std::string Joined(const std::vector<std::string>& types) {
    std::string text;
    for (const std::string& type : types) {
        text += (text.empty() ? "" : "; ") + type;
    }
    return text;
}

class CVerificationOfAll {
  public:
    CVerificationOfAll(const CTableFolders& folders, TUserDialog& dialog,
                       const TVerifyAllOptions& options)
        : m_folders(folders), m_dialog(dialog), m_options(options) {}

    TVerifyAllResult Run() {
        m_bBegun = m_options.firstType.empty();
        for (int men = FewestMen; men <= MostMen; ++men) {
            for (const bool bPawns : {false, true}) {
                if (!Round(men, bPawns)) {
                    return m_result;
                }
            }
        }
        return m_result;
    }

  private:
    /// False: nothing more is to be done.
    bool Round(int men, bool bPawns) {
        std::vector<std::string> missing;
        for (const std::string& type : AllTypes(men - 2, bPawns)) {
            if (!m_options.verify.pControl->MayGoOn()) {
                m_result.bStopped = true;
                return false;
            }
            m_bBegun = m_bBegun || type == m_options.firstType;
            if (!HasTableFile(m_folders, type)) {
                if (!IsPositionTypeWithoutData(type)) {
                    missing.push_back(type);
                }
            } else if (m_bBegun && !VerifyType(type)) {
                return false;
            }
        }
        m_result.missing.insert(m_result.missing.end(), missing.begin(), missing.end());
        const std::string text =
            FilledText(MissingTypesText,
                       {std::to_string(men), UserText(bPawns ? WithPawnsText : WithoutPawnsText),
                        Joined(missing)});
        if (men == MostMen && bPawns) {
            m_dialog.Tell(text);
            return false;
        }
        return m_dialog.Ask(text + UserText(AskMorePiecesText));
    }

    /// False after a stop.
    bool VerifyType(const std::string& type) {
        m_options.log(FilledText(VerificationStartsText, {type}));
        std::string end;
        try {
            const TVerifyCounts counts =
                CTableVerifier(m_folders, m_dialog, m_options.verify).Verify(type);
            m_result.bStopped = counts.bStopped;
            m_result.verified += counts.bStopped ? 0 : 1;
            m_result.faulty += counts.faults > 0 ? 1 : 0;
            end = counts.bStopped ? UserText(VerificationStoppedText)
                  : counts.faults == 0
                      ? UserText(VerificationAllRightText)
                      : FilledText(VerificationFaultsText, {std::to_string(counts.faults)});
        } catch (const ChessException& error) {
            ++m_result.faulty;
            end = FilledText(VerificationFailedText, {error.what()});
        }
        m_options.log(FilledText(VerificationOfTypeText, {type, end}));
        return !m_result.bStopped;
    }

    const CTableFolders& m_folders;
    TUserDialog& m_dialog;
    const TVerifyAllOptions& m_options;
    TVerifyAllResult m_result;
    bool m_bBegun = false;
};

}  // namespace

TVerifyAllResult VerifyAllPositionTypes(const CTableFolders& folders, TUserDialog& dialog,
                                        const TVerifyAllOptions& options) {
    return CVerificationOfAll(folders, dialog, options).Run();
}

bool HasTableFile(const CTableFolders& folders, const std::string& type) {
    const TTableName name = TableNameOf(type);
    for (const TTableFileMode mode :
         {TTableFileMode::Unpacked, TTableFileMode::Lz4, TTableFileMode::PackedLzw}) {
        for (const bool bAlternative : {false, true}) {
            const std::filesystem::path file =
                folders.MakeFileName(name, mode, false, bAlternative);
            std::error_code none;
            if (!file.empty() && std::filesystem::exists(file, none)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace tarnwick

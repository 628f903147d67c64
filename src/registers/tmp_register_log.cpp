#include "registers/tmp_register_log.h"

#include <string>

#include "registers/aggregated_register.h"

namespace tarnwick {
namespace {

constexpr unsigned LinesBeforeClosing = 65536;

}  // namespace

CTmpRegisterLog::CTmpRegisterLog(const std::filesystem::path& folder)
    : m_path(folder / "TmpRegLoad.log") {
    Open();
    if (m_file.is_open() && m_file.tellp() == 0) {
        m_file << "nMovesMate/Doubtful,nMovesNoMate/NotDoubtful,Heuristics,HeurParams,FEN\n";
    }
}

void CTmpRegisterLog::Open() {
    m_file.open(m_path, std::ios::app | std::ios::ate);
}

void CTmpRegisterLog::Write(TRecordValues values, std::int64_t key,
                            const TChessboardRegisterItem& position) {
    if (!m_file.is_open()) {
        return;
    }
    using TAggregate = TAggregatedTemporaryChessboardRegister;
    const std::uint16_t plies = values.m_first != 0 ? values.m_first : values.m_second;
    // The two words are sets of bits, shown as signed numbers.
    m_file << values.m_first << ',' << values.m_second << ','
           << static_cast<std::int32_t>(TAggregate::HeuristicsOf(key)) << ','
           << static_cast<std::int32_t>(TAggregate::HeurParamsOf(key)) << ','
           << FenOf(position, plies) << '\n';
    m_file.flush();
    if (++m_lines % LinesBeforeClosing == 0) {
        m_file.close();
        Open();
    }
}

}  // namespace tarnwick

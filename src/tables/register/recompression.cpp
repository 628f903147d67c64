#include "tables/register/recompression.h"

#include <new>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"

#include "tables/packed_buckets.h"
#include "tables/random_access_lzw_buffer.h"
#include "tables/register/register_texts.h"
#include "tables/simple_rle.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// Tables of fewer letters are too small to gain anything.
constexpr std::size_t LeastLetters = 3;

bool ToLzw(const TGlobalRegister& subregister, const CRandomAccessFile& file, const fs::path& path,
           TUserDialog& dialog) {
    const auto flags = static_cast<std::uint16_t>(
        subregister.IsCustom()
            ? 0
            : subregister.PlainIndex().Flags() & (CombinationsFlag | TwoByteElementsFlag));
    const auto writer = RandomAccessLZWBuffer::MakePackedTableWriter(
        static_cast<std::size_t>(subregister.ElementSize()), &dialog);
    return writer->PackFile(path, file, subregister.GetIndexCount(), flags);
}

bool ToBuckets(const TGlobalRegister& subregister, const CRandomAccessFile& file,
               const fs::path& path) {
    const std::uint8_t flags =
        subregister.IsCustom() ? std::uint8_t{0} : subregister.PlainIndex().Flags();
    return WritePackedBuckets(path, file, subregister.GetIndexCount(), flags);
}

bool Asked(const TUserText& question, const fs::path& path, TUserDialog& dialog) {
    return dialog.Ask(FilledText(question, {ToValidUtf8(path.string())}));
}

/// What fails is told and ends this one copy.
template <class TPack>
void Pack(TPack pack, TUserDialog& dialog) {
    bool bDone = false;
    try {
        bDone = pack();
    } catch (const ChessException&) {
    } catch (const std::bad_alloc&) {
    }
    if (!bDone) {
        dialog.Tell(UserText(PackingErrorText));
    }
}

}  // namespace

void OfferRecompression(const TGlobalRegister& subregister, const fs::path& path,
                        const TTableOptions& options, TUserDialog& dialog) {
    const int wish = options.askForGlobalRegisterRecompression;
    const auto* pDisk = dynamic_cast<const CDiskStore*>(&subregister.Store());
    if (wish <= 0 || pDisk == nullptr || subregister.Letters() < LeastLetters) {
        return;
    }
    const CRandomAccessFile& file = pDisk->File();
    if (subregister.Letters() == LeastLetters && Asked(AskPackSimpleText, path, dialog) &&
        PackSimple(file, subregister.GetIndexCount(), MakePackedFileName(path, false), dialog)) {
        dialog.Tell(UserText(PackedDoneText));
    }
    if (wish >= 2 && Asked(AskPackLzwText, path, dialog)) {
        Pack([&] { return ToLzw(subregister, file, MakePackedFileName(path, true), dialog); },
             dialog);
    }
    if (wish >= 3 && Asked(AskPackLz4eText, path, dialog)) {
        Pack([&] { return ToBuckets(subregister, file, MakePackedFileName(path, false)); }, dialog);
    }
}

}  // namespace tarnwick

#pragma once

// A folder with tables that the test itself has generated, in whatever form it wants them.

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include "support/temp_folder.h"
#include "tables/generation/table_factory.h"
#include "tables/lz4e_stream.h"
#include "tables/random_access_lzw_buffer.h"
#include "tables/register/table_options.h"

namespace tarnwick {

class CTableFolder {
  public:
    /// Plain tables of these types, each made with those that it needs.
    explicit CTableFolder(std::initializer_list<const char*> types) {
        MakeTables({types.begin(), types.end()});
    }

    /// The same, later.
    void MakeTables(const std::vector<std::string>& types) const {
        const CTableFolders folders(m_folder.Path(), {});
        TGenerationSettings settings;
        settings.threads = 2;
        settings.pControl = &NeverStopped;
        CTableFactory factory(folders, settings);
        for (const std::string& type : types) {
            for (const TPlannedTable& planned : factory.Plan({type}, true, false)) {
                factory.Make(planned);
            }
        }
    }

    const std::filesystem::path& Path() const { return m_folder.Path(); }

    /// For tables in memory.
    TTableOptions Options() const {
        TTableOptions options;
        options.bGlobalRegisterForceDiskAccess = false;
        options.programFolder = m_folder.Path();
        return options;
    }

    std::filesystem::path FileOf(const std::string& type,
                                 TTableFileMode mode = TTableFileMode::Unpacked) const {
        const TTableName name{.type = type,
                              .men = static_cast<int>(type.size()) + 2,
                              .bPawns = HasPawns(type),
                              .bFixedMen = false,
                              .wholeFileName = {}};
        return CTableFolders(m_folder.Path(), {}).MakeFileName(name, mode, false, false);
    }

    std::vector<std::uint8_t> BytesOf(const std::string& type) const {
        std::ifstream file(FileOf(type), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void WriteBytes(const std::string& type, const std::vector<std::uint8_t>& bytes) const {
        std::filesystem::create_directories(FileOf(type).parent_path());
        std::ofstream file(FileOf(type), std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }

    /// Puts another form in the plain table's place.
    void TurnIntoLz4(const std::string& type) const {
        WriteLz4eFile(FileOf(type, TTableFileMode::Lz4), BytesOf(type));
        std::filesystem::remove(FileOf(type));
    }
    void TurnIntoPackedLzw(const std::string& type) const {
        const std::vector<std::uint8_t> bytes = BytesOf(type);
        const auto writer = RandomAccessLZWBuffer::MakePackedTableWriter(1, nullptr);
        writer->Pack(bytes.size(), bytes.data(), false, 0, 0, 1);
        writer->SaveToFile(FileOf(type, TTableFileMode::PackedLzw), false, 0);
        std::filesystem::remove(FileOf(type));
    }

  private:
    CTempFolder m_folder;
};

}  // namespace tarnwick

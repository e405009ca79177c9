#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "import/cut_file.h"
#include "import/import_state.h"
#include "keywords/noise_words.h"
#include "support/source_form.h"

namespace snippetarium {

class Database;

/// Where an import stores.
struct StoreTarget {
    std::int32_t appID = 0;
    /// The dialog's language text: names with commas between them.
    std::string language = {};
};

/// The file that a class is made of.
struct ClassSource {
    /// Its list entry, the class's path in the application.
    std::string entry = {};
    SourceForm form = {};
};

/// What became of a file.
enum class StoreResult : std::uint8_t {
    Stored,
    /// Its class is in the catalogue and is not to be overwritten.
    LeftAlone,
    /// Nothing can be stored: it has no class name.
    NoName,
    /// The user stopped the import in the midst of it.
    Cancelled,
};

/// Stores what analysers cut out of the files of one import job.
///
/// Nothing is done in one go that can be cut in half: the class's row comes first, with the text
/// before its first procedure, then one procedure after the other, then the class's whole text with
/// the markers. A kill of the program leaves every procedure that was stored, and a note of it
/// (store/cut_short_imports.h); a cancelled import also leaves their markers. A class that is
/// overwritten is deleted once the new one is complete.
///
/// Problems go into the state's report. A failure of the catalogue is thrown.
class UnitStore {
  public:
    /// The references must outlive this.
    UnitStore(Database& db, ImportState& state, const NoiseWords& noise, StoreTarget target);

    StoreResult Store(const CutFile& file, const ClassSource& source);

  private:
    struct ClassAtHand;

    std::vector<std::int32_t> StoredBefore(const std::string& className,
                                           const std::string& entry) const;
    void DeleteOverwritten(std::int32_t classID, const std::string& entry);
    ClassAtHand AddNewClass(const CutFile& file, const ClassSource& source,
                            const std::string& className);
    StoreResult StoreProcedures(ClassAtHand& stored, const CutFile& file,
                                const ClassSource& source);
    void StoreProcedure(const ClassAtHand& stored, const CutProcedure& procedure,
                        const std::string& name, std::int32_t languageID);
    void StoreClassText(ClassAtHand& stored, const std::string& text);
    std::int32_t ClassLanguage(const std::string& entry);
    std::int32_t ProcedureLanguage(const CutProcedure& procedure, const std::string& entry);
    std::int32_t FindOrAddLanguage(const std::string& name);

    Database& db_;
    ImportState& state_;
    const NoiseWords& noise_;
    StoreTarget target_;
    /// By this job. On a disk where letter case counts, two files can have one name but for it;
    /// the second must not overwrite the first.
    std::set<std::int32_t> storedClasses_;
    std::map<std::string, std::int32_t> languages_;
    bool isUnderWay_ = false;
};

}  // namespace snippetarium

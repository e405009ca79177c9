#pragma once

#include <cstdint>

class QComboBox;

namespace snippetarium {

class Database;

// Boxes in which the application, the class or the language of a record is chosen. Each row bears
// its ID.

/// With what belongs to no application first, then by name. 0 selects that first one.
void FillApplicationBox(Database& db, QComboBox* box, std::int32_t selectedID);
/// The classes of one application. Where none is selected, the box says that the undefined class
/// is what is chosen.
void FillClassBox(Database& db, QComboBox* box, std::int32_t appID, std::int32_t selectedID);
void FillLanguageBox(Database& db, QComboBox* box, std::int32_t selectedID);

/// 0 where nothing is selected.
std::int32_t SelectedID(const QComboBox* box);

/// An ID of a record that a box lets the user change. Until he does it stays as it is stored, also
/// where the box has no row for it because what it names is gone.
class ChosenID {
  public:
    /// The box has been filled for the stored ID.
    void Keep(const QComboBox* box, std::int32_t storedID);
    std::int32_t Of(const QComboBox* box) const;

  private:
    std::int32_t stored_ = 0;
    std::int32_t shown_ = 0;
};

}  // namespace snippetarium

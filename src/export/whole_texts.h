#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "store/owner.h"

namespace snippetarium {

class Database;

/// Sentences for the report.
using Remarks = std::vector<std::string>;

/// A text of a class or procedure as its column has it.
struct StoredText {
    Owner owner;
    std::string_view part;  ///< the column's name
    std::string_view ownerName;
    std::string_view text;
};

/// The texts of one class and its procedures as they were before they were cut.
///
/// A text that was cut has exactly as many characters as its column takes. Where one has fewer or
/// more, somebody has changed it since, and what was cut off may no longer fit its end: it is then
/// left out, and a remark says so.
class WholeTexts {
  public:
    WholeTexts(Database& db, std::int32_t classID);

    std::string Whole(const StoredText& stored, Remarks& remarks) const;

  private:
    std::map<std::tuple<OwnerKind, std::int32_t, std::string>, std::string> rests_;
};

}  // namespace snippetarium

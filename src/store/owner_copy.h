#pragma once

#include <cstdint>

#include "store/owner.h"
#include "support/procedure_numbers.h"

namespace snippetarium {

class Database;

/// Gives the copy of a class or a procedure what belongs to the original. Rows are copied within
/// the engine, so that they are the same to the byte. Each operation throws.
class OwnerCopier {
  public:
    /// `procedure` is the operation that copies: what fails when it cleans up is reported with its
    /// number.
    OwnerCopier(Database& db, Procedure procedure) : db_(db), procedure_(procedure) {}

    /// Authors, dates and what was cut off long texts; of a procedure its language too.
    void CopyLinks(const Owner& original, std::int32_t copyID) const;
    /// The keyword string in a row of its own, linked to the same search words; 0 for none.
    void CopyKeyword(std::int32_t keywordID, const Owner& copy);

    /// After a failure: removes a keyword string that was copied and that no owner has got. Where
    /// that fails too, it is reported.
    void RemoveLooseKeyword();

  private:
    Database& db_;
    Procedure procedure_;
    std::int32_t looseKeywordID_ = 0;
};

}  // namespace snippetarium

#pragma once

#include <string>
#include <vector>

#include "editors/owner_details.h"
#include "store/author_links.h"

namespace snippetarium {

/// The authors, dates and keywords of a record, as an editor shows and changes them before they are
/// stored.
struct EditedDetails {
    std::vector<AuthorName> authors = {};
    /// As they were typed, or in the catalogue's form.
    std::vector<std::string> dates = {};
    /// A blank text is none.
    KeywordEntry keywords = {};

    bool operator==(const EditedDetails&) const = default;
};

EditedDetails DetailsToEdit(const OwnerDetails& details);

/// What has to be stored, so that an owner with the details `before` has those of `after`: the
/// lists and the keywords that differ.
DetailChanges ChangesBetween(const EditedDetails& before, const EditedDetails& after);

}  // namespace snippetarium

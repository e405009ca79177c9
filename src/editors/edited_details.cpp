#include "editors/edited_details.h"

#include "keywords/words.h"

namespace snippetarium {

namespace {

/// Which separator stands between no words does not matter.
bool AreSameKeywords(const KeywordEntry& one, const KeywordEntry& other) {
    return one == other || (TrimBlanks(one.text).empty() && TrimBlanks(other.text).empty());
}

}  // namespace

EditedDetails DetailsToEdit(const OwnerDetails& details) {
    EditedDetails edited{.dates = details.dates};
    for (const LinkedAuthor& author : details.authors)
        edited.authors.push_back(author.name);
    if (details.keywords) edited.keywords = details.keywords->entry;
    return edited;
}

DetailChanges ChangesBetween(const EditedDetails& before, const EditedDetails& after) {
    DetailChanges changes;
    if (after.authors != before.authors) changes.authors = after.authors;
    if (after.dates != before.dates) changes.dates = after.dates;
    if (!AreSameKeywords(before.keywords, after.keywords)) changes.keywords = after.keywords;
    return changes;
}

}  // namespace snippetarium

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

/// A stored query as its row in the catalogue has it.
struct QueryText {
    std::string name;
    /// Names and kinds, as ParseQueryParameters takes them.
    std::string parameters;
    /// One SELECT of the catalogue's dialect, without its semicolon.
    std::string body;

    bool operator==(const QueryText&) const = default;
};

/// Reads a file of stored queries:
///
///     -- What one should know about the query, if anything.
///     -- name: qryCodeIDByName(codeName T255)
///     SELECT codeID
///     FROM tblCode
///     WHERE codeName = [codeName];
///
/// A body ends with the line that ends with a semicolon. Lines that begin with two hyphens are for
/// the reader of the file and belong to no body. Throws Error with the file, as `fileName` calls
/// it, and the line: for a heading that is malformed, a query without a body, a body without its
/// semicolon or without a heading.
std::vector<QueryText> ParseQueryTexts(std::string_view fileName, std::string_view text);

}  // namespace snippetarium

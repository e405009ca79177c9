#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "engine/candidate_table.h"
#include "engine/search_conditions.h"
#include "engine/text_lookup.h"

namespace snippetarium {

/// The value of a parameter, nothing where it has none that is a text.
using ParameterText = std::function<std::optional<std::string>(std::string_view name)>;

/// Lets the text index help a search: puts in front of each condition of the statement that only
/// those rows are to be looked at which can fulfil it, as in
///
///     WHERE cd.codeID IN tblTextCandidates(0) AND (cd.Code LIKE '%grid%' ...)
///
/// The new statement finds the same rows. Nothing where the index is of no help. Throws EngineError
/// where reading fails, or a look at many texts is cancelled.
std::optional<std::string> RestrictSearch(std::string_view statement,
                                          const ParameterText& parameters, TextLookup& lookup,
                                          CandidateTable& lists);

}  // namespace snippetarium

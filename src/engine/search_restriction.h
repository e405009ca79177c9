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

/// Lets the text index help a search: joins to the tables of each SELECT a list of those rows which
/// can fulfil its condition, so that only they are looked at, as in
///
///     FROM ... tblCode cd ..., tblTextCandidates(0) AS textCandidates0
///     WHERE textCandidates0.id = cd.codeID AND (cd.Code LIKE '%grid%' ...)
///
/// Where the index cannot tell, and all rows are going to be read anyway, the list makes the engine
/// read them in their order. The new statement finds the same rows. Nothing where the index is of
/// no help. Throws EngineError where reading fails, or a look at many texts is cancelled.
std::optional<std::string> RestrictSearch(std::string_view statement,
                                          const ParameterText& parameters, TextLookup& lookup,
                                          CandidateTable& lists);

}  // namespace snippetarium

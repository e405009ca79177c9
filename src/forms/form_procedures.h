#pragma once

#include "support/procedure_numbers.h"

namespace snippetarium::form_procedure {

// The numbers of the forms' handlers.
inline constexpr Procedure AddClassEvent{1};
inline constexpr Procedure AddCodeEvent{17};
inline constexpr Procedure AddDateEvent{40};
inline constexpr Procedure ApplicationEvent{60};
inline constexpr Procedure AuthorsEvent{90};
inline constexpr Procedure BookmarkEvent{124};
inline constexpr Procedure ClassEvent{150};
inline constexpr Procedure CodeEvent{190};
inline constexpr Procedure LanguageChoiceEvent{191};
inline constexpr Procedure CommonWordEvent{210};
inline constexpr Procedure ConfigureEvent{230};
inline constexpr Procedure ContentsEvent{245};
inline constexpr Procedure EditSearchWordEvent{248};
inline constexpr Procedure ExportEvent{270};
inline constexpr Procedure FindEvent{292};
inline constexpr Procedure ImportEvent{370};
inline constexpr Procedure ImportPreviewEvent{371};
inline constexpr Procedure IndexEvent{394};
inline constexpr Procedure KeywordsEvent{400};
inline constexpr Procedure LanguageEvent{425};
inline constexpr Procedure SaveReport{429};
inline constexpr Procedure RunCommand{460};
inline constexpr Procedure MainWindowEvent{461};
inline constexpr Procedure TrashEvent{462};
inline constexpr Procedure QuickSearchEvent{463};
inline constexpr Procedure DraftsEvent{464};
inline constexpr Procedure SaveToEvent{560};
inline constexpr Procedure SearchEvent{640};
inline constexpr Procedure SelectLanguageEvent{653};

}  // namespace snippetarium::form_procedure

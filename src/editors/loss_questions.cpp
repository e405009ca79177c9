#include "editors/loss_questions.h"

#include <vector>

#include "editors/overlong.h"
#include "export/markers.h"
#include "store/class_markers.h"
#include "store/database.h"
#include "store/sql_text.h"
#include "support/message_boxes.h"
#include "support/text.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// So many names are read in a question; the others are counted.
constexpr std::size_t kMostNames = 10;

std::string ListOf(const std::vector<std::string>& names) {
    std::string list;
    for (std::size_t i = 0; i < names.size() && i < kMostNames; ++i)
        list += "\r\n    " + names[i];
    if (names.size() > kMostNames)
        list += "\r\n    and " + Grouped(names.size() - kMostNames) + " more";
    return list;
}

std::vector<std::string> LostMarkers(const ClassRecord& record, const ClassRecord& stored,
                                     const MarkedProcedures& procedures) {
    std::vector<bool> isLost(procedures.codeNames.size());
    for (const MarkerPlace& place : FindMarkers(stored.declarations, procedures))
        isLost[place.procedure] = true;
    for (const MarkerPlace& place : FindMarkers(record.declarations, procedures))
        isLost[place.procedure] = false;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < isLost.size(); ++i) {
        if (isLost[i]) names.push_back(procedures.codeNames[i]);
    }
    return names;
}

}  // namespace

bool MayForgetOverlong(Database& db, const Owner& owner, std::string_view part,
                       std::string_view what) {
    const std::size_t length = CharacterCount(OverlongRest(db, owner, part));
    if (length == 0) return true;
    const std::string question =
        Sql("This ", what, " was imported with more characters than can be stored in one piece. ",
            "Its last ", Grouped(length),
            " characters are not shown here; export puts them back behind the ", what,
            ", but only as long as it is not changed.\r\n\r\nWould you like to store your changes "
            "and lose those characters?");
    return AskYesNo(db.GetHost().messages, question, kQuestionTitle) == StandardAnswer::Yes;
}

bool FitOrCut(Database& db, std::string& code) {
    if (code.size() <= kLongTextLimit) return true;
    const std::size_t length = CharacterCount(code);
    if (length <= kLongTextLimit) return true;
    const std::string question =
        Sql("The code has ", Grouped(length), " characters, and ", Grouped(kLongTextLimit),
            " can be stored.\r\n\r\nWould you like to cut its end off?");
    if (AskYesNo(db.GetHost().messages, question, kQuestionTitle) != StandardAnswer::Yes)
        return false;
    code = CutToCharacters(code, kLongTextLimit);
    return true;
}

bool KeepMarkers(Database& db, ClassRecord& record, const ClassRecord& stored) {
    if (stored.classID == 0 || record.declarations == stored.declarations) return true;
    const MarkedProcedures procedures = MarkedProceduresOf(db, stored.classID);
    const std::vector<std::string> lost = LostMarkers(record, stored, procedures);
    if (lost.empty()) return true;
    const std::string question =
        Sql("The text has no markers any more for these procedures of the class, so export would "
            "leave them out:",
            ListOf(lost),
            "\r\n\r\nClick Yes to put their markers at the end of the text, click No to store the "
            "text as it is, click Cancel to go back.");
    const StandardAnswer answer = AskYesNoCancel(db.GetHost().messages, question, kQuestionTitle);
    if (answer == StandardAnswer::Yes) {
        for (const std::string& name : lost)
            record.declarations = AppendMarker(record.declarations, procedures, name);
    }
    return answer != StandardAnswer::Cancel;
}

}  // namespace snippetarium

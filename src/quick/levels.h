#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "quick/query.h"
#include "store/owner.h"

namespace snippetarium {

/// The texts that a hit can be found by, in the order of its rank.
enum class QuickText : std::uint8_t { Name, Keyword, Comment, Code };
inline constexpr std::size_t kQuickTexts = 4;

/// The statements by which quick search reads one level of the catalogue. ?1 is an ID where nothing
/// else is said.
struct QuickLevel {
    QuickKind kind;
    /// What the link tables call it.
    OwnerKind owner;
    std::string_view newestID;
    /// ID and name of the rows from ?1 to ?2, in the order of their IDs.
    std::string_view names;
    /// Name, keywordID, appID, appName, classID, className, languageID.
    std::string_view row;
    std::string_view comment;
    std::string_view code;
    /// The IDs whose name or comment is ?1, of two letters at most.
    std::string_view nameIs;
    std::string_view commentIs;
    /// The IDs from ?1 to ?2 whose comment or code is LIKE ?3.
    std::string_view commentsLike;
    std::string_view codesLike;
    /// The IDs that have the keyword ?1.
    std::string_view idsOfKeyword;
    /// keywordID and ID of rows with keywords above ?1, in the order of the keywords: some
    /// thousands, to the last one of a keyword, and less where there are no more. Not of
    /// procedures, which are too many.
    std::string_view keywords;
};

// clang-format off
inline constexpr std::array<QuickLevel, kQuickKinds> kQuickLevels = {{
    {
        .kind = QuickKind::Application,
        .owner = OwnerKind::Application,
        .newestID = "SELECT max(appID) FROM tblApplication",
        .names = "SELECT appID, appName FROM tblApplication NOT INDEXED WHERE appID BETWEEN ?1 AND ?2 ORDER BY appID",
        .row = "SELECT appName, keywordID, appID, appName, 0, '', 0 FROM tblApplication WHERE appID = ?1",
        .comment = "SELECT appComment FROM tblApplication WHERE appID = ?1",
        .code = {},
        .nameIs = "SELECT appID FROM tblApplication WHERE appName = ?1",
        .commentIs = "SELECT appID FROM tblApplication WHERE appComment = ?1",
        .commentsLike = "SELECT appID FROM tblApplication NOT INDEXED WHERE appID BETWEEN ?1 AND ?2 AND appComment LIKE ?3",
        .codesLike = {},
        .idsOfKeyword = "SELECT appID FROM tblApplication WHERE keywordID = ?1",
        .keywords = "SELECT keywordID, appID FROM tblApplication WHERE keywordID > ?1 AND keywordID <= coalesce("
                    "(SELECT keywordID FROM tblApplication WHERE keywordID > ?1 ORDER BY keywordID LIMIT 1 OFFSET 4095), "
                    "2147483647) ORDER BY keywordID",
    },
    {
        .kind = QuickKind::Class,
        .owner = OwnerKind::Class,
        .newestID = "SELECT max(classID) FROM tblClass",
        .names = "SELECT classID, className FROM tblClass NOT INDEXED WHERE classID BETWEEN ?1 AND ?2 ORDER BY classID",
        .row = "SELECT cls.className, cls.keywordID, a.appID, a.appName, cls.classID, cls.className, cls.languageID "
               "FROM tblClass cls CROSS JOIN tblApplication a ON a.appID = cls.appID WHERE cls.classID = ?1",
        .comment = "SELECT classComment FROM tblClass WHERE classID = ?1",
        .code = "SELECT classDI FROM tblClass WHERE classID = ?1",
        .nameIs = "SELECT classID FROM tblClass WHERE className = ?1",
        .commentIs = "SELECT classID FROM tblClass WHERE classComment = ?1",
        .commentsLike = "SELECT classID FROM tblClass NOT INDEXED WHERE classID BETWEEN ?1 AND ?2 AND classComment LIKE ?3",
        .codesLike = "SELECT classID FROM tblClass NOT INDEXED WHERE classID BETWEEN ?1 AND ?2 AND classDI LIKE ?3",
        .idsOfKeyword = "SELECT classID FROM tblClass WHERE keywordID = ?1",
        .keywords = "SELECT keywordID, classID FROM tblClass WHERE keywordID > ?1 AND keywordID <= coalesce("
                    "(SELECT keywordID FROM tblClass WHERE keywordID > ?1 ORDER BY keywordID LIMIT 1 OFFSET 4095), "
                    "2147483647) ORDER BY keywordID",
    },
    {
        .kind = QuickKind::Procedure,
        .owner = OwnerKind::Procedure,
        .newestID = "SELECT max(codeID) FROM tblCode",
        .names = "SELECT codeID, codeName FROM tblCode NOT INDEXED WHERE codeID BETWEEN ?1 AND ?2 ORDER BY codeID",
        .row = "SELECT cd.codeName, cd.keywordID, a.appID, a.appName, cls.classID, cls.className, cls.languageID "
               "FROM tblCode cd CROSS JOIN tblClass cls ON cls.classID = cd.classID "
               "CROSS JOIN tblApplication a ON a.appID = cls.appID WHERE cd.codeID = ?1",
        .comment = "SELECT codeComment FROM tblCode WHERE codeID = ?1",
        .code = "SELECT code FROM tblCode WHERE codeID = ?1",
        .nameIs = "SELECT codeID FROM tblCode WHERE codeName = ?1",
        .commentIs = "SELECT codeID FROM tblCode WHERE codeComment = ?1 AND length(codeComment) <= 2",
        .commentsLike = "SELECT codeID FROM tblCode NOT INDEXED WHERE codeID BETWEEN ?1 AND ?2 AND codeComment LIKE ?3",
        .codesLike = "SELECT codeID FROM tblCode NOT INDEXED WHERE codeID BETWEEN ?1 AND ?2 AND code LIKE ?3",
        .idsOfKeyword = "SELECT codeID FROM tblCode WHERE keywordID = ?1",
        .keywords = {},
    },
}};
// clang-format on

constexpr const QuickLevel& LevelOf(QuickKind kind) {
    return kQuickLevels[static_cast<std::size_t>(kind)];
}

}  // namespace snippetarium

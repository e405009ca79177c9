#include "cli/field_options.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "cli/closest_names.h"
#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/text_argument.h"
#include "cli/usage_error.h"
#include "editors/author_text.h"
#include "editors/catalogue_lists.h"
#include "store/reads_languages.h"
#include "support/case_fold.h"
#include "support/error.h"

namespace snippetarium {

namespace {

using namespace field_option;

/// The options that only some kinds of node have; the others go with every kind.
struct OptionKinds {
    std::string_view option;
    bool application;
    bool aClass;
    bool procedure;

    bool Has(NodeKind kind) const {
        if (kind == NodeKind::Application) return application;
        return kind == NodeKind::Class ? aClass : procedure;
    }
};

// clang-format off
constexpr OptionKinds kOptionKinds[] = {
    {kApplication, false, true,  false},
    {kClass,       false, false, true},
    {kPath,        true,  true,  false},
    {kVersion,     true,  false, false},
    {kLanguage,    false, true,  true},
    {kTextFrom,    false, true,  false},
    {kCodeFrom,    false, false, true},
};
constexpr std::string_view kFileOptions[] = {kCommentFrom, kTextFrom, kCodeFrom};
// clang-format on

/// Puts a value that was given in the place of what is there.
template <typename Value>
void Take(std::optional<Value> given, Value& field) {
    if (given) field = std::move(*given);
}

void TakeComment(const CommandContext& context, std::string& comment) {
    Take(TextArgument(context, kComment), comment);
    Take(FileArgument(context, kCommentFrom), comment);
}

/// The node of an option that names the parent of another one.
std::optional<NodeIDs> ParentArgument(const CommandContext& context, Database& db,
                                      std::string_view option, NodeKind kind) {
    const std::optional<std::string> key = context.Given().Value(option);
    if (!key) return std::nullopt;
    const NodeIDs node = ReadNodeKey(*key);
    if (KindOf(node) != kind) {
        const bool isClass = kind == NodeKind::Class;
        throw UsageError(std::string(option) + " takes the key of " +
                         (isClass ? "a class, such as a12f34" : "an application, such as a12") +
                         ", not '" + *key + "'.");
    }
    RequireNode(db, node);
    return node;
}

std::optional<std::int32_t> LanguageArgument(const CommandContext& context, Database& db) {
    const std::optional<std::string> name = TextArgument(context, kLanguage);
    return name ? std::optional(FindLanguage(db, *name)) : std::nullopt;
}

void RequireOneStandardInput(const Arguments& given) {
    const auto readers = std::ranges::count_if(
        kFileOptions, [&given](std::string_view option) { return given.Value(option) == "-"; });
    if (readers > 1) throw UsageError("Only one text can come from the standard input.");
}

}  // namespace

bool HasFieldOptions(const CommandContext& context) {
    return std::ranges::any_of(kFieldOptions, [&context](const CommandOption& option) {
        return context.Given().Has(option.name);
    });
}

void RequireFittingOptions(const CommandContext& context, NodeKind kind) {
    const Arguments& given = context.Given();
    for (const OptionKinds& row : kOptionKinds) {
        if (row.Has(kind) || !given.Has(row.option)) continue;
        throw UsageError(std::string(row.option) + " is no option for " +
                         (kind == NodeKind::Application ? "an " : "a ") +
                         std::string(KindName(kind)) + ".");
    }
    if (given.Has(kComment) && given.Has(kCommentFrom))
        throw UsageError("--comment and --comment-from exclude each other.");
    RequireOneStandardInput(given);
}

void TakeFields(const CommandContext& context, ApplicationRecord& record) {
    Take(TextArgument(context, kPath), record.path);
    Take(TextArgument(context, kVersion), record.version);
    TakeComment(context, record.comment);
}

void TakeFields(const CommandContext& context, Database& db, ClassRecord& record) {
    if (const auto parent = ParentArgument(context, db, kApplication, NodeKind::Application))
        record.appID = parent->appID;
    Take(TextArgument(context, kPath), record.pathInApp);
    Take(LanguageArgument(context, db), record.languageID);
    TakeComment(context, record.comment);
    Take(FileArgument(context, kTextFrom), record.declarations);
}

void TakeFields(const CommandContext& context, Database& db, CodeRecord& record) {
    if (const auto parent = ParentArgument(context, db, kClass, NodeKind::Class))
        record.classID = parent->classID;
    Take(LanguageArgument(context, db), record.languageID);
    TakeComment(context, record.comment);
    Take(FileArgument(context, kCodeFrom), record.code);
}

DetailChanges TakeDetails(const CommandContext& context, Database& db,
                          const OwnerDetails& present) {
    DetailChanges changes;
    if (const auto names = TextArgument(context, kAuthors)) {
        changes.authors.emplace();
        for (const std::string& name : SplitList(*names))
            changes.authors->push_back(ParseAuthorText(name));
    }
    if (const auto dates = TextArgument(context, kDates)) changes.dates = SplitList(*dates);

    const std::optional<std::string> keywords = TextArgument(context, kKeywords);
    const std::optional<std::string> separator = TextArgument(context, kSeparator);
    if (!keywords && !separator) return changes;
    if (!keywords && !present.keywords)
        throw UsageError("--separator needs --keywords, because there are no keywords yet.");
    changes.keywords = present.keywords ? present.keywords->entry : KeywordEntry{};
    Take(keywords, changes.keywords->text);
    if (separator) changes.keywords->separatorID = FindSeparator(db, *separator);
    return changes;
}

std::int32_t FindLanguage(Database& db, const std::string& name) {
    if (const std::int32_t languageID = LanguageID(db, name)) return languageID;
    std::vector<std::string> names;
    for (Recordset row = Language(db); !row.EndOfFile(); row.MoveNext())
        names.push_back(row["language"].Text());
    const std::vector<std::string_view> views(names.begin(), names.end());
    throw Error(error_number::kInvalidCall,
                "There is no language '" + name + "'." + ClosestNamesHint(name, views) + " '" +
                    std::string(kProgramName) + " languages' lists them.");
}

std::int32_t FindSeparator(Database& db, const std::string& name) {
    std::string known;
    for (Recordset row = AllSeparators(db); !row.EndOfFile(); row.MoveNext()) {
        const std::string description = row["separatorDescription"].Text();
        if (EqualFolded(description, name) || row["separator"].Text() == name)
            return row["separatorID"].Long();
        known += (known.empty() ? "" : ", ") + FoldCase(description);
    }
    throw Error(error_number::kInvalidCall,
                "There is no separator '" + name + "'. There are: " + known + ".");
}

}  // namespace snippetarium

#pragma once

#include <string>

#include "cli/commands.h"
#include "editors/application_record.h"
#include "editors/class_record.h"
#include "editors/code_record.h"
#include "editors/owner_details.h"
#include "support/node_key.h"

namespace snippetarium {

class CommandContext;
class Database;

// The fields of an application, a class or a procedure, as the commands that add and edit them take
// them from options and files.

namespace field_option {
inline constexpr std::string_view kApplication = "--application";
inline constexpr std::string_view kClass = "--class";
inline constexpr std::string_view kPath = "--path";
inline constexpr std::string_view kVersion = "--app-version";
inline constexpr std::string_view kLanguage = "--language";
inline constexpr std::string_view kComment = "--comment";
inline constexpr std::string_view kCommentFrom = "--comment-from";
inline constexpr std::string_view kTextFrom = "--text-from";
inline constexpr std::string_view kCodeFrom = "--code-from";
inline constexpr std::string_view kAuthors = "--authors";
inline constexpr std::string_view kDates = "--dates";
inline constexpr std::string_view kKeywords = "--keywords";
inline constexpr std::string_view kSeparator = "--separator";
}  // namespace field_option

// clang-format off
inline constexpr CommandOption kFieldOptions[] = {
    {field_option::kApplication, "KEY",   "a class: the application that it belongs to"},
    {field_option::kClass,       "KEY",   "a procedure: the class that it belongs to"},
    {field_option::kPath,        "PATH",  "an application: its folder; a class: its file, from that folder"},
    {field_option::kVersion,     "TEXT",  "an application: its version"},
    {field_option::kLanguage,    "NAME",  "a class or a procedure: its language"},
    {field_option::kComment,     "TEXT",  "the comment"},
    {field_option::kCommentFrom, "FILE",  "the comment, from a file, or from the standard input with -"},
    {field_option::kTextFrom,    "FILE",  "a class: its text, likewise"},
    {field_option::kCodeFrom,    "FILE",  "a procedure: its code, likewise"},
    {field_option::kAuthors,     "NAMES", "the authors, with semicolons between them"},
    {field_option::kDates,       "DATES", "the dates, with semicolons between them"},
    {field_option::kKeywords,    "TEXT",  "the keywords"},
    {field_option::kSeparator,   "NAME",  "what stands between the keywords: blank, comma, semicolon, slash or vertical bar"},
};
// clang-format on

/// True when any of the options was given.
bool HasFieldOptions(const CommandContext& context);

/// Throws UsageError where an option was given that this kind of node does not have, or two that
/// exclude each other.
void RequireFittingOptions(const CommandContext& context, NodeKind kind);

// Writes what was given into the record, and leaves the rest. Throw UsageError, and Error where a
// node, a language or a file that an option names is not there.

void TakeFields(const CommandContext& context, ApplicationRecord& record);
void TakeFields(const CommandContext& context, Database& db, ClassRecord& record);
void TakeFields(const CommandContext& context, Database& db, CodeRecord& record);

/// What was given for authors, dates and keywords. `present` is what the owner has: a separator
/// that is given alone is put between its keywords.
DetailChanges TakeDetails(const CommandContext& context, Database& db, const OwnerDetails& present);

/// The ID of a language by its name. Throws Error where there is none, with the names that come
/// close.
std::int32_t FindLanguage(Database& db, const std::string& name);
/// The ID of a separator by its description or by itself. Throws Error where there is none.
std::int32_t FindSeparator(Database& db, const std::string& name);

}  // namespace snippetarium

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "editors/edited_details.h"

namespace snippetarium {

// The fields of a record and its details as texts with names. Two states of a record can then be
// compared, joined field by field, and kept in a draft, whatever kind of record it is.

struct FieldText {
    std::string_view field;
    std::string text = {};

    bool operator==(const FieldText&) const = default;
};
/// Each field once, always in the same order.
using FieldTexts = std::vector<FieldText>;

/// Null where there is no such field.
const std::string* FindText(const FieldTexts& texts, std::string_view field);

/// A number as a text, and back; 0 for what is none.
std::string NumberText(std::int32_t number);
std::int32_t NumberIn(std::string_view text);

/// A column of a record: a text, or the ID of something.
template <typename Record>
struct RecordField {
    std::string_view name;
    std::variant<std::string Record::*, std::int32_t Record::*> member;
};

template <typename Record>
FieldTexts TextsOf(const Record& record, std::span<const RecordField<Record>> fields) {
    FieldTexts texts;
    for (const RecordField<Record>& field : fields) {
        if (const auto* text = std::get_if<std::string Record::*>(&field.member)) {
            texts.push_back({field.name, record.**text});
        } else {
            texts.push_back({field.name, NumberText(record.*std::get<1>(field.member))});
        }
    }
    return texts;
}

/// Fields that are not among the texts stay.
template <typename Record>
void SetTexts(Record& record, std::span<const RecordField<Record>> fields,
              const FieldTexts& texts) {
    for (const RecordField<Record>& field : fields) {
        const std::string* found = FindText(texts, field.name);
        if (!found) continue;
        if (const auto* text = std::get_if<std::string Record::*>(&field.member)) {
            record.** text = *found;
        } else {
            record.*std::get<1>(field.member) = NumberIn(*found);
        }
    }
}

/// "authors" (a line for each, its three parts with tabs between), "dates" (a line for each),
/// "keywords" and "separator".
FieldTexts TextsOfDetails(const EditedDetails& details);
void SetTexts(EditedDetails& details, const FieldTexts& texts);

/// What `mine` made of `loaded`, over what is stored now: a field that I changed is mine, any other
/// one is as it is stored. All three have the same fields.
FieldTexts Joined(const FieldTexts& loaded, const FieldTexts& mine, const FieldTexts& stored);

/// The fields that somebody else changed to what is not mine, in words: "its name, its comment".
/// Empty where there is none.
std::string ChangedElsewhere(const FieldTexts& loaded, const FieldTexts& mine,
                             const FieldTexts& stored);

}  // namespace snippetarium

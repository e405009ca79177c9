#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "support/calendar.h"

namespace snippetarium {

// The pieces of which the statements that change the catalogue are built.

/// What a column of names takes, and one of languages, search words and author names, counted in
/// characters. A longer text is cut when it is written, and again when it is looked up
/// (Parameter::Text255, Text50), so that it is found.
inline constexpr std::size_t kNameLimit = 255;
inline constexpr std::size_t kShortTextLimit = 50;
/// What a column of long texts takes: code, the text of a class, comments. What a person enters is
/// refused, or cut to it if he says so; an import cuts what is longer and keeps the rest in
/// tblOverlong, which belongs to the text as long as that has this very length.
inline constexpr std::size_t kLongTextLimit = 64'000;

/// The text as an SQL literal: "it's" gives "'it''s'".
std::string SqlText(std::string_view text);
/// The same of the first 255 characters.
std::string SqlText255(std::string_view text);
/// The same of the first 50 characters.
std::string SqlText50(std::string_view text);
/// What follows the "=" of an optional column: the literal, or " null" for the empty text.
std::string SqlTextOrNull(std::string_view text);
/// "#2001-03-14#".
std::string SqlDate(const DateTime& date);

/// A number or a text that stands in a statement as it is. An enumeration stands for its number.
template <typename Piece>
concept SqlPiece = std::same_as<Piece, std::int32_t> || std::is_enum_v<Piece> ||
    std::convertible_to<const Piece&, std::string_view>;

/// The pieces one behind the other, numbers in decimal:
///
///     Sql("UPDATE tblCode SET codeName = ", SqlText255(name), " WHERE codeID = ", codeID, ";")
template <SqlPiece... Pieces>
std::string Sql(const Pieces&... pieces) {
    const auto append = [](std::string& sql, const auto& piece) {
        using Piece = std::remove_cvref_t<decltype(piece)>;
        if constexpr (std::convertible_to<const Piece&, std::string_view>) {
            sql += std::string_view(piece);
        } else {
            sql += std::to_string(static_cast<std::int32_t>(piece));
        }
    };
    std::string sql;
    (append(sql, pieces), ...);
    return sql;
}

/// The columns of an INSERT and their values, in the same order. It starts with those that every
/// row has; of the others, those without a value are left out.
class InsertLists {
  public:
    InsertLists(std::string columns, std::string values);
    /// Nothing for the empty text.
    void AddText(std::string_view column, std::string_view text);
    /// Nothing for an ID below 1.
    void AddID(std::string_view column, std::int32_t id);

    const std::string& Columns() const { return columns_; }
    const std::string& Values() const { return values_; }

  private:
    std::string columns_;
    std::string values_;
};

}  // namespace snippetarium

#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace snippetarium {

// The pieces of which the statements that change the catalogue are built.

/// What a column of names takes, and one of languages, search words and author names, counted in
/// characters. A longer text is cut when it is written, and again when it is looked up
/// (Parameter::Text255, Text50), so that it is found.
inline constexpr std::size_t kNameLimit = 255;
inline constexpr std::size_t kShortTextLimit = 50;

/// The text as an SQL literal: "it's" gives "'it''s'".
std::string SqlText(std::string_view text);
/// The same of the first 255 characters.
std::string SqlText255(std::string_view text);
/// The same of the first 50 characters.
std::string SqlText50(std::string_view text);

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

}  // namespace snippetarium

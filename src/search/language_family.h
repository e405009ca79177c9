#pragma once

#include <cstdint>

namespace snippetarium {

/// The kinds of language that a search tells apart, because in a page several languages meet.
enum class LanguageFamily : std::uint8_t { Pages, Scripts, Others };

/// By the delivered rows of the language table: 6 ASP, 9 HTML; 7 JavaScript, 8 VBScript.
constexpr LanguageFamily FamilyOf(std::int16_t languageID) {
    switch (languageID) {
        case 6:
        case 9:
            return LanguageFamily::Pages;
        case 7:
        case 8:
            return LanguageFamily::Scripts;
        default:
            return LanguageFamily::Others;
    }
}

}  // namespace snippetarium

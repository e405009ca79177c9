#pragma once

#include "import/c_tokens.h"

namespace snippetarium {

/// Masks the macros and extensions around declarations, so that what stays looks like plain C or
/// C++:
///
///     FOO_API int WINAPI f(void) NOEXCEPT {    int f(void) {
///     class EXPORT Grid : public Base {        class Grid : public Base {
///     Q_OBJECT                                 (a line of its own)
///
/// Without the files that define them macros can only be guessed: names in capitals, by what stands
/// around them. Names inside brackets are left alone.
void MaskDeclarationMacros(CTokens& tokens);

}  // namespace snippetarium

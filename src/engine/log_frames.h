#pragma once

namespace snippetarium {

/// The name of a way for the library to reach its files that is its own, except that a page goes
/// into the log in one call of the system where the library makes two: one for 24 bytes about the
/// page, one for the page. Statements that commit by themselves, as all of ours do, spend a third
/// of their time in these calls.
///
/// The 24 bytes wait for the page, which the library writes next, and go with it. Nothing else is
/// changed: what the library takes for written is written when the call for the page returns.
const char* LogFramesVfs();

}  // namespace snippetarium

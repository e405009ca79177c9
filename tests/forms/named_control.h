#pragma once

namespace snippetarium::test {

// Names, kinds and captions are what users' notes, the help and other programs' scripts go by. The
// tests' tables say them a second time on purpose.

struct NamedControl {
    const char* form;
    const char* name;
    const char* kind;
    /// "" for a control without a caption of its own.
    const char* caption;
};

}  // namespace snippetarium::test

#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "import/page_regions.h"
#include "navigator/highlight.h"

namespace snippetarium {

/// What highlights one text in one way.
class Highlighter::Engine {
  public:
    Engine() = default;
    virtual ~Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Goes on for about this long. True when all is done.
    virtual bool Work(std::chrono::microseconds time) = 0;
    virtual bool IsDone() const = 0;
    virtual std::vector<HighlightSpan> Spans(const TextRange& range) const = 0;
    virtual std::size_t KnownUpTo() const = 0;
};

using HighlightEngine = std::unique_ptr<Highlighter::Engine>;

enum class HighlightGrammar : std::uint8_t { C, Cpp, Java, CSharp, JavaScript, Html };

/// By the grammar's syntax tree and its own highlighting queries.
HighlightEngine HighlightByTree(std::string text, HighlightGrammar grammar);
/// Visual Basic and VBScript, line by line.
HighlightEngine HighlightBasic(std::string text);
/// A page: its markup, and in it the scripts of browser and server.
HighlightEngine HighlightPage(std::string text, PageKind kind);

}  // namespace snippetarium

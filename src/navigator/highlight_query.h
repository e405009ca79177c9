#pragma once

#include <tree_sitter/api.h>

#include <chrono>
#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "navigator/highlight_engine.h"
#include "navigator/name_pattern.h"

namespace snippetarium {

/// A grammar's highlighting queries, compiled: which nodes of its trees are shown how. The parser
/// library finds the nodes; the conditions about their texts (#match?, #eq?) are tested here.
class HighlightQuery {
  public:
    /// Compiled at its first use and kept. That takes up to 50 milliseconds of a thread of its own;
    /// nothing where it is not done when the caller has waited this long.
    static const HighlightQuery* Of(HighlightGrammar grammar, std::chrono::microseconds wait);

    const TSLanguage* Language() const { return language_; }
    const TSQuery* Get() const { return query_.get(); }
    /// Whether the conditions of the match's pattern hold.
    bool Holds(const TSQueryMatch& match, std::string_view text) const;
    /// Nothing for what is shown as plain text.
    std::optional<HighlightKind> KindOf(const TSQueryCapture& capture) const;

  private:
    struct Condition {
        std::uint32_t capture = 0;
        /// One of the two.
        std::optional<NamePattern> pattern;
        std::string equal;

        bool Holds(std::string_view text) const;
    };
    struct Deleter {
        void operator()(TSQuery* query) const;
    };

    explicit HighlightQuery(HighlightGrammar grammar);
    static std::shared_future<HighlightQuery> Compile(HighlightGrammar grammar);
    static const std::shared_future<HighlightQuery>& CompilationOf(HighlightGrammar grammar);
    void ReadConditions();
    void ReadKinds();

    const TSLanguage* language_;
    std::unique_ptr<TSQuery, Deleter> query_;
    std::vector<std::vector<Condition>> conditions_;   // by pattern
    std::vector<std::optional<HighlightKind>> kinds_;  // by capture
};

}  // namespace snippetarium

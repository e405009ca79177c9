#include "quick/words_to_mark.h"

#include <set>

#include "quick/quick_search.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

class Words {
  public:
    void Add(std::string_view word) {
        if (!word.empty() && folded_.insert(FoldCase(word)).second) list_.emplace_back(word);
    }
    void AddFound(std::string_view text, const std::vector<ByteRange>& ranges) {
        for (const ByteRange& range : ranges)
            Add(text.substr(range.begin, range.size));
    }
    void AddTerms(const QuickQuery& query, const QuickNode& node) {
        if (node.type == QuickNode::Type::Not) return;
        for (const QuickNode& part : node.parts)
            AddTerms(query, part);
        if (node.type != QuickNode::Type::Term) return;
        const QuickTerm& term = query.terms[node.term];
        const bool isLiteral = term.isPhrase || term.text.find_first_of("*?") == std::string::npos;
        if (IsTextField(term.field) && isLiteral) Add(term.text);
    }
    std::vector<std::string> Take() { return std::move(list_); }

  private:
    std::set<std::string> folded_;
    std::vector<std::string> list_;
};

}  // namespace

std::vector<std::string> WordsToMark(std::string_view entry, const QuickHit& hit) {
    const QuickQuery query = ParseQuickQuery(entry);
    Words words;
    if (query.root) words.AddTerms(query, *query.root);
    words.AddFound(hit.Name(), hit.nameMatches);
    words.AddFound(hit.line.text, hit.line.matches);
    return words.Take();
}

}  // namespace snippetarium

#pragma once

#include <string>
#include <vector>

namespace snippetarium::test {

// The statements of the catalogue, as its operations word them.

/// Every INSERT, UPDATE and DELETE. Each changes something in a SampleCatalogue.
std::vector<std::string> ActionStatements();

/// Every search and existence test. Each finds something in a SampleCatalogue.
std::vector<std::string> ReadStatements();

/// The search for `wordCount` keywords joined by "and"; the first is alpha, all others beta.
std::string KeywordAndSearch(int wordCount);

/// The statement in the words of the engine below, where that can be had without a translator.
std::string PlainStatement(const std::string& statement);

}  // namespace snippetarium::test

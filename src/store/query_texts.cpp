#include "store/query_texts.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "store/names.h"
#include "support/error.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::string_view kComment = "--";
constexpr std::string_view kHeading = "-- name:";

class QueryFileReader {
  public:
    QueryFileReader(std::string_view fileName, std::string_view text)
        : fileName_(fileName), rest_(text) {}

    std::vector<QueryText> Read();

  private:
    bool NextLine();
    void StartQuery();
    void AddToBody();
    void RequireEndOfBody() const;
    [[noreturn]] void Refuse(std::string_view reason) const;

    std::string_view fileName_;
    std::string_view rest_;
    std::string_view line_;
    std::size_t lineNumber_ = 0;
    bool isInBody_ = false;
    std::vector<QueryText> queries_;
};

std::vector<QueryText> QueryFileReader::Read() {
    while (NextLine()) {
        if (line_.starts_with(kHeading)) {
            StartQuery();
        } else if (!line_.starts_with(kComment) && !line_.empty()) {
            AddToBody();
        }
    }
    RequireEndOfBody();
    return std::move(queries_);
}

/// Blanks at the end of a line, and the return character of a foreign line end, do not count.
bool QueryFileReader::NextLine() {
    if (rest_.empty()) return false;
    const std::size_t end = rest_.find('\n');
    line_ = rest_.substr(0, end);
    rest_ = end == std::string_view::npos ? std::string_view() : rest_.substr(end + 1);
    line_ = line_.substr(0, line_.find_last_not_of(" \t\r") + 1);
    ++lineNumber_;
    return true;
}

void QueryFileReader::StartQuery() {
    RequireEndOfBody();
    const std::string_view heading = TrimToVisible(line_.substr(kHeading.size()));
    const std::size_t bracket = heading.find('(');
    if (bracket == std::string_view::npos || !heading.ends_with(')')) {
        Refuse("a heading is written '-- name: qryName(parameter kind, ...)'");
    }
    const std::string_view name = heading.substr(0, bracket);
    if (!name.starts_with("qry") || !std::all_of(name.begin(), name.end(), IsAlphanumeric)) {
        Refuse("a query's name begins with qry and holds letters and digits only");
    }
    const std::string_view parameters = heading.substr(bracket + 1, heading.size() - bracket - 2);
    try {
        ParseQueryParameters(parameters);
    } catch (const Error& error) {
        Refuse(error.Description());
    }
    queries_.push_back({std::string(name), std::string(parameters), {}});
    isInBody_ = true;
}

void QueryFileReader::AddToBody() {
    if (!isInBody_) Refuse("this stands outside a query: a heading is missing above it");
    std::string& body = queries_.back().body;
    if (!body.empty()) body += '\n';
    body += line_;
    if (!body.ends_with(';')) return;
    body.pop_back();
    isInBody_ = false;
}

void QueryFileReader::RequireEndOfBody() const {
    if (isInBody_) Refuse("the query above has no semicolon at its end");
}

void QueryFileReader::Refuse(std::string_view reason) const {
    throw Error(error_number::kInternal, std::string(fileName_) + ", line " +
                                             std::to_string(lineNumber_) + ": " +
                                             std::string(reason) + ".");
}

}  // namespace

std::vector<QueryText> ParseQueryTexts(std::string_view fileName, std::string_view text) {
    return QueryFileReader(fileName, text).Read();
}

}  // namespace snippetarium

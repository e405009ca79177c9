#include "import/basic_scan.h"

#include <utility>

#include "import/procedure_names.h"
#include "support/ascii_search.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kOptionExplicit = "Option Explicit";

/// A member of a type or an enumeration may be named like a keyword, "Property As String", and
/// would pass for the start of a procedure that never ends.
bool IsMemberNamedLikeKeyword(std::string_view key, ProcedureKind kind) {
    const std::string_view keyword = ProcedureKeyword(kind);
    if (!StartsWithIgnoringAsciiCase(key, keyword)) return false;
    const std::string_view rest = key.substr(keyword.size());
    return StartsWithIgnoringAsciiCase(rest, "As ") || rest.starts_with('\'');
}

std::optional<ProcedureKind> KindOfStart(std::string_view key) {
    const std::optional<ProcedureKind> kind = IsProcedureStart(key);
    if (kind && IsMemberNamedLikeKeyword(key, *kind)) return std::nullopt;
    return kind;
}

/// Whether a procedure seems to begin inside another one. Most lines of a body are passed over by
/// their first letter, before a key is made.
bool LooksLikeStart(std::string_view visibleLine) {
    constexpr std::string_view kFirstLetters = "sSpPfF";
    return !visibleLine.empty() && kFirstLetters.find(visibleLine.front()) != kNone &&
           KindOfStart(NormaliseKeyLine(std::string(visibleLine)));
}

/// Finds the line in a body that begins another procedure. The second head of a procedure whose
/// heads depend on a condition does not:
///
///     #If Win64 Then
///     Public Sub Draw(ByVal window As LongPtr)
///     #Else
///     Public Sub Draw(ByVal window As Long)
///     #End If
class StrayStartSearch {
  public:
    bool IsStrayStart(std::string_view line) {
        const std::string_view visible = TrimToVisible(line);
        if (visible.starts_with('#')) {
            FollowDirective(visible);
            return false;
        }
        return !isInAlternative_ && LooksLikeStart(visible);
    }

  private:
    void FollowDirective(std::string_view directive) {
        if (StartsWithIgnoringAsciiCase(directive, "#If")) {
            ++openConditions_;
        } else if (StartsWithIgnoringAsciiCase(directive, "#End")) {
            if (openConditions_ == 0) isInAlternative_ = false;
            if (openConditions_ > 0) --openConditions_;
        } else if (StartsWithIgnoringAsciiCase(directive, "#Else")) {
            if (openConditions_ == 0) isInAlternative_ = true;
        }
    }

    /// Those that began inside the procedure.
    int openConditions_ = 0;
    /// In another branch of the condition that the procedure's first head depends on.
    bool isInAlternative_ = false;
};

}  // namespace

ProcedureBody ReadProcedureBody(LineReader& reader, std::string_view firstRaw, ProcedureKind kind) {
    ProcedureBody body;
    StrayStartSearch strayStarts;
    const char* end = firstRaw.data() + firstRaw.size();
    while (!body.isClosed && !reader.IsDone()) {
        const std::string_view line = reader.ReadLine();
        end = line.data() + line.size();
        body.isClosed = IsProcedureEnd(line, kind);
        if (body.strayStartLine == 0 && strayStarts.IsStrayStart(line))
            body.strayStartLine = reader.LineNumber();
    }
    body.text.assign(firstRaw.data(), end).append(kLineBreak);
    return body;
}

namespace {

class BasicScanner {
  public:
    BasicScanner(std::string_view text, BasicDialect dialect, LineProgress& progress)
        : dialect_(dialect), reader_(text, progress) {}

    BasicScan Scan() {
        while (!reader_.IsDone()) {
            const LogicalLine line = ReadLogicalLine(reader_);
            if (IsCommentLine(line.key)) {
                if (!commentBegin_) commentBegin_ = line.begin;
            } else if (!IsBlankLine(line.raw)) {
                EndBlock(line.begin);
                TakeLine(line);
                commentBegin_.reset();
            }
        }
        EndBlock(reader_.Offset());
        return std::move(scan_);
    }

  private:
    void EndBlock(std::size_t end) {
        if (commentBegin_ == 0U) scan_.endOfBlockOnTop = end;
    }

    void TakeLine(const LogicalLine& line) {
        const std::optional<ProcedureKind> kind = KindOfStart(line.key);
        if (kind && (dialect_ == BasicDialect::VisualBasic || IsVbScriptProcedure(*kind))) {
            TakeProcedure(line, *kind);
        } else if (scan_.procedures.empty()) {
            TakeDeclaration(line);
        }
    }

    void TakeDeclaration(const LogicalLine& line) {
        if (dialect_ == BasicDialect::VisualBasic && scan_.className.empty())
            scan_.className = ClassNameFromAttribute(line.key);
        if (!scan_.optionExplicit && StartsWithIgnoringAsciiCase(line.raw, kOptionExplicit))
            scan_.optionExplicit = {commentBegin_.value_or(line.begin), line.begin};
    }

    void TakeProcedure(const LogicalLine& line, ProcedureKind kind) {
        ProcedureBody body = ReadProcedureBody(reader_, line.raw, kind);
        BasicProcedure procedure;
        procedure.name = dialect_ == BasicDialect::VisualBasic
                             ? ProcedureName(line.raw, kind)
                             : VbScriptProcedureName(line.raw, line.key, kind);
        procedure.commentBegin = commentBegin_.value_or(line.begin);
        procedure.begin = line.begin;
        procedure.end = reader_.Offset();
        if (!body.isClosed) procedure.end -= DropBlankLinesAtEnd(body.text);
        procedure.code = std::move(body.text);
        if (body.strayStartLine > 0)
            ReportStrayStart(procedure.name, line.number, body.strayStartLine);
        scan_.procedures.push_back(std::move(procedure));
    }

    /// Returns how many bytes that were.
    static std::size_t DropBlankLinesAtEnd(std::string& code) {
        const std::size_t size = code.size();
        while (code.ends_with("\r\n\r\n"))
            code.resize(code.size() - kLineBreak.size());
        return size - code.size();
    }

    void ReportStrayStart(const std::string& name, std::size_t line, std::size_t strayStartLine) {
        scan_.problems.push_back("The procedure " + (name.empty() ? name : name + " ") +
                                 "of line " + std::to_string(line) + " has no end before line " +
                                 std::to_string(strayStartLine) + ", where another one begins.");
    }

    BasicDialect dialect_;
    LineReader reader_;
    BasicScan scan_;
    /// Of the block of comment lines that was read last, while only blank lines followed it.
    std::optional<std::size_t> commentBegin_;
};

}  // namespace

BasicScan ScanBasic(std::string_view text, BasicDialect dialect, LineProgress& progress) {
    return BasicScanner(text, dialect, progress).Scan();
}

std::size_t FindOptionExplicit(std::string_view text) {
    return FindIgnoringAsciiCase(text, kOptionExplicit);
}

}  // namespace snippetarium

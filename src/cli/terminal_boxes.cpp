#include "cli/terminal_boxes.h"

#include <algorithm>
#include <cctype>
#include <span>
#include <string>
#include <utility>

#include "support/message_boxes.h"

namespace snippetarium {

/// What a kind of question accepts and what it answers when nobody is asked.
template <typename Answer>
struct TerminalBoxes::Question {
    struct Word {
        std::string_view text;
        Answer answer;
    };

    std::string_view prompt;
    std::span<const Word> words;
    Answer yes;
    Answer no;
    /// The answer that changes least. It also stands for the end of the input.
    Answer safest;
};

namespace {

/// The line without the blanks around it, in small letters.
std::string Normalised(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    std::string word(line.substr(first, line.find_last_not_of(kBlanks) - first + 1));
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return word;
}

}  // namespace

void TerminalBoxes::Print(std::string_view message, std::string_view title) {
    console_.PrintLine(std::string(title) + ": " + std::string(message));
}

void TerminalBoxes::Information(std::string_view message, std::string_view title) {
    lastInformation_ = message;
    Print(message, title);
}

void TerminalBoxes::Warning(std::string_view message, std::string_view title) {
    Print(message, title);
}

void TerminalBoxes::Error(std::string_view message, std::string_view title) {
    if (!firstError_) firstError_ = message;
    Print(message, title);
}

StandardAnswer TerminalBoxes::YesNo(std::string_view question, std::string_view title) {
    using enum StandardAnswer;
    // clang-format off
    static constexpr Question<StandardAnswer>::Word kWords[] = {
        {"y", Yes}, {"yes", Yes},
        {"n", No},  {"no", No},
    };
    // clang-format on
    return Resolve<StandardAnswer>(question, title, {"[y/n] ", kWords, Yes, No, No});
}

StandardAnswer TerminalBoxes::YesNoCancel(std::string_view question, std::string_view title) {
    using enum StandardAnswer;
    // clang-format off
    static constexpr Question<StandardAnswer>::Word kWords[] = {
        {"y", Yes},    {"yes", Yes},
        {"n", No},     {"no", No},
        {"c", Cancel}, {"cancel", Cancel},
    };
    // clang-format on
    return Resolve<StandardAnswer>(question, title, {"[y/n/c] ", kWords, Yes, No, Cancel});
}

SeriesAnswer TerminalBoxes::Series(std::string_view question) {
    using enum SeriesAnswer;
    // clang-format off
    static constexpr Question<SeriesAnswer>::Word kWords[] = {
        {"y", Yes},    {"yes", Yes},
        {"yes to all", YesToAll},
        {"n", No},     {"no", No},
        {"no to all",  NoToAll},
        {"c", Cancel}, {"cancel", Cancel},
    };
    // clang-format on
    constexpr std::string_view kPrompt = "[y/yes to all/n/no to all/c] ";
    return Resolve<SeriesAnswer>(question, kQuestionTitle,
                                 {kPrompt, kWords, YesToAll, NoToAll, Cancel});
}

template <typename Answer>
Answer TerminalBoxes::Resolve(std::string_view text, std::string_view title,
                              const Question<Answer>& question) {
    Print(text, title);
    switch (policy_) {
        case QuestionPolicy::Yes:
            console_.PrintLine("Answered: yes");
            return question.yes;
        case QuestionPolicy::No:
            console_.PrintLine("Answered: no");
            return question.no;
        case QuestionPolicy::Ask:
            break;
    }
    if (CanAsk()) return ReadAnswer(question);
    wasRefused_ = true;
    console_.PrintLine(
        "Nobody can be asked, because the standard input is no terminal. "
        "Run the command again with --yes or --no to answer its questions.");
    return question.safest;
}

template <typename Answer>
Answer TerminalBoxes::ReadAnswer(const Question<Answer>& question) {
    std::string line;
    while (console_.Ask(question.prompt, line)) {
        const std::string typed = Normalised(line);
        for (const auto& [word, answer] : question.words) {
            if (typed == word) return answer;
        }
    }
    return question.safest;
}

void TerminalBoxes::AnswerCancelPress(const std::function<void()>& handler) {
    if (CanAsk()) return handler();
    struct Restore {
        QuestionPolicy& policy;
        QuestionPolicy before;
        ~Restore() { policy = before; }
    };
    const Restore restore{policy_, std::exchange(policy_, QuestionPolicy::Yes)};
    handler();
}

}  // namespace snippetarium

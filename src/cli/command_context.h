#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "cli/command_line.h"
#include "cli/json.h"
#include "cli/streams.h"
#include "store/database.h"
#include "support/host.h"

namespace snippetarium {

/// Whether a command only looks at the catalogue or changes it.
enum class CatalogueUse { Read, Change };

/// What a command works with: what it was given, where it prints, the world, and the catalogue,
/// which is opened only when it is asked for.
///
/// A command runs inside a guard: where an operation fails, its message has been shown and the
/// command is left by an exception, so that it never goes on with the operation's default result.
class CommandContext {
  public:
    CommandContext(const CommandLine& line, const Streams& streams, const Host& host)
        : line_(line), streams_(streams), host_(host) {}
    CommandContext(const CommandContext&) = delete;
    CommandContext& operator=(const CommandContext&) = delete;

    const Arguments& Given() const { return line_.arguments; }
    bool WantsJson() const { return line_.wantsJson; }
    const CommandLine& Line() const { return line_; }
    const Streams& GetStreams() const { return streams_; }
    const Host& GetHost() const { return host_; }

    /// For what people read. With --json a command prints nothing but sets its document.
    std::ostream& Output() { return streams_.output; }
    /// The document to print when the command has succeeded.
    void SetDocument(const Json& document);
    /// As printed: indented, UTF-8, a line break at its end. Empty where none was set.
    const std::string& Document() const { return document_; }

    /// Asks before something is done that cannot simply be undone. Throws Error where the answer is
    /// no, or nobody can be asked.
    void RequireConsent(std::string_view question) const;

    /// For a command whose result is to be printed although it is bad news: the message is shown
    /// and the exit status is that of a failure.
    void FailAfterwards(std::string_view message);
    bool IsFailure() const { return isFailure_; }

    /// The folder of the catalogue. Throws Error where it does not exist.
    std::string Folder() const;
    /// The catalogue, not opened. Throws Error where there is none; the message says how to make
    /// one.
    Database& ClosedCatalogue();
    /// The catalogue, open. Throws as ClosedCatalogue does, where it cannot be opened, and where it
    /// is to be changed while another program may change it.
    Database& Catalogue(CatalogueUse use);
    /// Closes the catalogue if it is open. Throws as its operations do.
    void CloseCatalogue();

  private:
    const CommandLine& line_;
    const Streams& streams_;
    const Host& host_;
    std::optional<Database> database_;
    std::string document_;
    bool isFailure_ = false;
};

}  // namespace snippetarium

#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "engine/provider.h"
#include "engine/session.h"
#include "engine/sqlite_session.h"

namespace snippetarium::test {

/// The catalogue's own session, which tells a test of every script before it runs.
class WatchedSession final : public Session {
  public:
    WatchedSession(const SessionOptions& options, std::function<void()> beforeScript)
        : session_(options), beforeScript_(std::move(beforeScript)) {}

    Recordset Query(std::string_view text) override { return session_.Query(text); }
    Recordset NamedQuery(std::string_view name, std::span<const Parameter> parameters) override {
        return session_.NamedQuery(name, parameters);
    }
    Recordset Search(std::string_view text) override { return session_.Search(text); }
    Recordset NamedSearch(std::string_view name, std::span<const Parameter> parameters) override {
        return session_.NamedSearch(name, parameters);
    }
    bool Advance(TextScan& scan) override { return session_.Advance(scan); }
    bool TendTextIndex(TendingPace pace) override { return session_.TendTextIndex(pace); }
    std::unique_ptr<RowCursor> OpenCursor(std::string_view sql,
                                          std::span<const BoundValue> values) override {
        return session_.OpenCursor(sql, values);
    }
    std::int64_t Act(std::string_view text) override { return session_.Act(text); }
    void RunScript(std::string_view script) override {
        beforeScript_();
        session_.RunScript(script);
    }
    void RunTransaction(std::span<const BoundStatement> statements) override {
        session_.RunTransaction(statements);
    }
    std::int32_t UserVersion() override { return session_.UserVersion(); }
    void SetWriteMode(WriteMode mode) override { session_.SetWriteMode(mode); }
    void Checkpoint() override { session_.Checkpoint(); }
    void SetCancelPoll(const CancelPoll* poll) override { session_.SetCancelPoll(poll); }

  private:
    SqliteSession session_;
    std::function<void()> beforeScript_;
};

inline ProviderRegistry WatchedProviders(const std::function<void()>& beforeScript) {
    ProviderRegistry registry;
    registry.Register(kCatalogueProvider, [beforeScript](const SessionOptions& options) {
        return std::make_unique<WatchedSession>(options, beforeScript);
    });
    return registry;
}

}  // namespace snippetarium::test

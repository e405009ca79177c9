#include "engine/provider.h"

#include "engine/engine_error.h"
#include "engine/sqlite_session.h"
#include "support/case_fold.h"

namespace snippetarium {

void ProviderRegistry::Register(std::string_view name, OpenSession open) {
    providers_[FoldCase(name)] = std::move(open);
}

std::unique_ptr<Session> ProviderRegistry::Open(std::string_view provider,
                                                const SessionOptions& options) const {
    const auto found = providers_.find(FoldCase(provider));
    if (found == providers_.end()) {
        throw EngineError(EngineErrorCode::ProviderNotFound,
                          "The database provider '" + std::string(provider) +
                              "' cannot be found. It may not be properly installed.");
    }
    return found->second(options);
}

ProviderRegistry CatalogueProviders() {
    ProviderRegistry registry;
    registry.Register(kCatalogueProvider, [](const SessionOptions& options) {
        return std::make_unique<SqliteSession>(options);
    });
    return registry;
}

}  // namespace snippetarium

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "engine/session.h"

namespace snippetarium {

/// The name under which the catalogue's own provider is registered, as connection strings write it.
inline constexpr std::string_view kCatalogueProvider = "Microsoft.Jet.OLEDB.4.0";

/// Which providers this program has. A value that whoever opens connections is given, so that a
/// test can open one where the provider is missing.
class ProviderRegistry {
  public:
    /// Opens the data source and returns the session; throws EngineError.
    using OpenSession = std::function<std::unique_ptr<Session>(const SessionOptions&)>;

    void Register(std::string_view name, OpenSession open);
    /// Throws EngineError (ProviderNotFound) when no provider of that name (without regard to case)
    /// is registered.
    std::unique_ptr<Session> Open(std::string_view provider, const SessionOptions& options) const;

  private:
    std::map<std::string, OpenSession> providers_;
};

/// A registry that holds the catalogue's provider.
ProviderRegistry CatalogueProviders();

}  // namespace snippetarium

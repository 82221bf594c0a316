// What pages may do in the browser engine.
#pragma once

#include <memory>

class QWebEngineProfile;

namespace brindlemoor {

class PagePolicy;

/// The profile of all pages: nothing is stored, scripts and the like are off, and every request
/// goes by the policy, which the profile does not outlive.
std::unique_ptr<QWebEngineProfile> NewPageProfile(const PagePolicy& policy);

}  // namespace brindlemoor

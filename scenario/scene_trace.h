// SceneTrace: why actions did nothing in a scenario.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "script/action_trace.h"

namespace brindlemoor {

struct Scene;

/// Listens while the lines of a scenario let the engine do something, and keeps what became of each
/// action when it was last asked for.
class SceneTrace {
 public:
  explicit SceneTrace(Scene& scene);
  SceneTrace(const SceneTrace&) = delete;
  SceneTrace& operator=(const SceneTrace&) = delete;

  /// What became of an action of the card with the Global ID; nullptr when it was never asked for.
  const AskedAction* LastOf(std::int32_t globalId, int action) const;

  /// While one exists, a scene's trace listens, if it has one.
  class Listening {
   public:
    explicit Listening(Scene& scene);
    ~Listening();
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
  };

 private:
  void Note(const AskedAction& asked);

  Scene& scene_;
  ActionTrace trace_;
  std::map<std::pair<std::int32_t, int>, AskedAction> last_;
};

/// True when the scenario asks why an action did nothing, or the report wants to be told.
bool WantsTrace(const Scene& scene);

/// Why an action did nothing when it was last asked for, in the words of RefusalLine; for one that
/// was not asked for, what it waits for. card is where it is now, nullptr when it has gone.
std::string WhyNot(const Scene& scene, std::int32_t globalId, const Card* card, int action);

}  // namespace brindlemoor

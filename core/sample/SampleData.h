#pragma once

namespace reelhouse {

class Preferences;
class StoreContext;

/// The small stock that a new user finds.
namespace SampleData {

/// Fills a stock without types and filaments, once for each user, and saves it. Not an action
/// that could be undone. Not to be called on the temporary store in memory.
void seed(StoreContext& context, Preferences& preferences);

} // namespace SampleData

} // namespace reelhouse

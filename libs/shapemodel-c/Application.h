/// Makes the application object that fonts and pictures need, and the stores of pictures.
#pragma once

namespace capi {

/// Makes them once, where the process has none. Throws Refusal (SM_UNAVAILABLE). Cost: O(1) after the first call.
void ExpectApplication();

} // namespace capi

/// The application object that fonts and pictures need, and the stores of pictures.
#pragma once

namespace capi {

/// Makes what the process lacks, once. Throws Refusal (SM_UNAVAILABLE). Cost: O(1) after the first call.
void ExpectApplication();

} // namespace capi

#pragma once

#include "platform/linux/recognition/FrontEnd.h"

namespace brivandel {

/// Scales each coefficient that varies much more in the voice than it did in the training of the packaged
/// model down, pauses and noise with it. The resonances of a voice that is made, and not recorded, are
/// sharper than those of a throat, and the model takes that for other phones. What varies less stays as it
/// is: noise and echoes flatten a voice, and with it they would be scaled up. The loudness stays, and so does
/// sound that is too short to tell.
void limitVariance(Features& features);

} // namespace brivandel

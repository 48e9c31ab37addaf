#pragma once

namespace brivandel {

/// Tells assistive technology that what paints itself (the status disc, page dots) is a picture, whose
/// accessible name says what it shows. Once a program.
void installAccessibleGraphics();

} // namespace brivandel

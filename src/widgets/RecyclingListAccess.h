#pragma once

namespace brivandel {

/// Lets assistive technology see every row of the program's long lists, also those without a widget. May be
/// called any number of times.
void installRecyclingListAccess();

} // namespace brivandel

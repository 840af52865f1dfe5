#pragma once

namespace platform::common
{

/// From now on what is written to standard output comes out byte for byte; some hosts would put a carriage
/// return before each line feed.
void keepStandardOutputBytes();

} // namespace platform::common

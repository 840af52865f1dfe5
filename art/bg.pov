// The field of play: the Earth's edge at the bottom, day on the left, the lights of the night on the right.
#include "common.inc"
#include "earth.inc"

Flat(240, 320)

#declare Low = vnormalize(<-0.90, 0.22, -0.36>);
SunFrom(Low)
Sunlight(Low, 1.35)
Bounce(0.10)

// The edge passes through (113, 260) and falls by 25 pixels over 120 to either side.
#declare Radius = (120 * 120 + 25 * 25) / (2 * 25);
object { Earth(24, -27, 0, 1.6) scale Radius translate At(113, 260 + Radius, 0) }

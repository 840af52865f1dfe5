// The field of play: the Earth's edge at the bottom, day on the left, the lights of the night on the right.
#include "common.inc"
#declare AirHeight = 0.013;
#declare AirClear = 15;
#include "earth.inc"

Flat(240, 320)

#declare Low = vnormalize(<-0.93, 0.10, -0.36>);
SunFrom(Low)
Sunlight(Low, 2.3)
Bounce(0.10)

// The edge passes through (113, 260) and falls by 25 pixels over 120 to either side.
#declare Radius = (120 * 120 + 25 * 25) / (2 * 25);
object { Earth(22, -27, 0, 2.2) scale Radius translate At(113, 260 + Radius, 0) }

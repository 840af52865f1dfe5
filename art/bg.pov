// The field of play: the Earth's edge at the bottom, the day's last light on it; where the satellite flies it is
// night, so that whatever passes over it is seen.
#include "common.inc"
#declare AirHeight = 0.013;
#declare AirClear = 15;
#declare SeaShine = 0;
#include "earth.inc"

Flat(240, 320)

#declare Low = vnormalize(<-0.40, 0.47, 0.80>);
SunFrom(Low)
Sunlight(Low, 3.9)
// Moonlight: the night is blue, not black.
light_source { <-0.3, 0.6, -1> * 100000 color srgb <0.30, 0.42, 0.72> * 0.30 parallel point_at 0 shadowless }

// The edge passes through (113, 260) and falls by 25 pixels over 120 to either side.
#declare Radius = (120 * 120 + 25 * 25) / (2 * 25);
object { Earth(22, -27, 0, 0.22) scale Radius translate At(113, 260 + Radius, 0) }

// The missile's one frame: 12 x 12, of which only columns and rows 2 to 11 are used.
#include "common.inc"
#include "missile.inc"
Flat(12, 12)
Sunlight(SunWay, 1.6)
Bounce(2.0)
Edge(srgb <0.6, 0.8, 1>, 0.5)
object { Missile scale 0.98 translate <1.0, -1.05, 0> }

// The player's satellite as it circles over the Earth.
#include "common.inc"
#include "satellite.inc"
Flat(30, 24)
Sunlight(SunWay, 1.9)
Bounce(2.2)
Edge(srgb <0.5, 0.75, 1>, 0.5)
object { Satellite rotate y * -18 rotate x * -24 rotate z * -14 scale 1.02 translate <0, -0.9, 0> }

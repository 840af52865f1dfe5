// The player's satellite as it circles over the Earth.
#include "common.inc"
#include "satellite.inc"
Flat(30, 26)
Sunlight(SunWay, 1.9)
Bounce(2.2)
Edge(srgb <0.5, 0.75, 1>, 0.5)
light_source { <-0.2, 0.3, -1> * 100000 color SunColour * 0.85 parallel point_at 0 shadowless }
object { Satellite rotate y * -24 rotate x * -26 rotate z * -12 scale 1.12 translate <0, -1.4, 0> }

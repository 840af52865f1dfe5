// The player's satellite as it circles over the Earth.
#include "common.inc"
#include "satellite.inc"
Flat(30, 30)
Sunlight(SunWay, 2.8)
Bounce(2.2)
Edge(srgb <0.5, 0.75, 1>, 0.6)
light_source { <-0.2, 0.3, -1> * 100000 color SunColour * 0.75 parallel point_at 0 shadowless }
object { Satellite rotate y * -22 rotate x * -30 rotate z * -12 scale 1.14 translate <0, -1.6, 0> }

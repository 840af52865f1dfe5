// The title: a great rock hangs over the Earth, smaller ones are on their way, the satellite keeps watch.
#include "common.inc"
#include "earth.inc"
#include "satellite.inc"
#include "rock.inc"

Flat(240, 320)
#declare Sun = vnormalize(<-0.86, 0.40, -0.30>);
SunFrom(Sun)
Sunlight(Sun, 1.6)
Bounce(0.35)
Edge(srgb <0.45, 0.66, 0.95>, 0.12)

object { Earth(12, -18, -16, 1.8) scale 205 translate At(150, 425, 400) }

#macro FallingRock(File, Colour, Dust, Spin, Size, Place)
  #include File
  object { Rock RockTexture(Colour, Dust) rotate Spin scale Size translate Place }
#end
FallingRock("rock1.inc", RockBrown, srgb <0.78, 0.72, 0.64>, <20, 200, 30>, 52, At(186, 44, 0))
FallingRock("rock4.inc", RockOchre, srgb <0.90, 0.76, 0.50>, <50, 20, 10>, 15, At(96, 66, -50))
FallingRock("rock3.inc", RockSlate, srgb <0.72, 0.78, 0.86>, <10, 120, 70>, 9, At(60, 36, -50))
FallingRock("rock2.inc", RockRust, srgb <0.84, 0.56, 0.38>, <10, 60, -50>, 10, At(208, 206, -50))

object { Satellite rotate y * 28 rotate x * -28 rotate z * 16 scale 2.5 translate At(58, 258, -300) }

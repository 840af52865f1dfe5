// The title: a great rock hangs over the Earth, above the game's name, smaller ones are on their way, the satellite keeps watch.
#include "functions.inc"
#include "common.inc"
#include "earth.inc"
#include "satellite.inc"
#include "rock.inc"

Flat(240, 320)
#declare Sun = vnormalize(<-0.86, 0.40, -0.30>);
SunFrom(Sun)
Sunlight(Sun, 1.6)
Bounce(0.9)
Edge(srgb <0.45, 0.66, 0.95>, 1.6)
// The night side keeps its shape.
light_source { <0.3, 0.1, -1> * 100000 color srgb <0.46, 0.50, 0.62> * 0.85 parallel point_at 0 shadowless }

object { Earth(12, -18, -16, 1.8) scale 205 translate At(150, 425, 400) }

#macro FallingRock(File, Colour, Dust, Spin, Size, Place)
  #include File
  object { Rock RockTexture(Colour, Dust, 0.35) rotate Spin scale Size translate Place }
#end
FallingRock("rock1.inc", RockBrown, srgb <0.78, 0.72, 0.64>, <-30, 35, 20>, 47, At(203, 6, 0))
FallingRock("rock4.inc", RockOchre, srgb <0.90, 0.76, 0.50>, <50, 20, 10>, 13, At(96, 22, -50))
FallingRock("rock3.inc", RockSlate, srgb <0.72, 0.78, 0.86>, <10, 120, 70>, 8, At(52, 36, -50))
FallingRock("rock2.inc", RockRust, srgb <0.84, 0.56, 0.38>, <10, 60, -50>, 6.5, At(26, 14, -50))

#declare Chance = seed(5);
#for (I, 1, 16)
  object { Rock RockTexture(RockBrown, srgb <0.78, 0.72, 0.64>, 0.3)
    rotate 360 * <rand(Chance), rand(Chance), 0>
    scale 0.8 + 1.9 * pow(rand(Chance), 2)
    translate At(100 + 132 * rand(Chance), 4 + 40 * rand(Chance), -90 * (I > 8)) }
#end

// A rock that has reached the air: a white head and a tail of fire, in a plane of its own along x.
#macro Meteor(Length, Width, Angle, Place)
  box { <-0.25, -1, 0>, <1, 1, 0.001>
    pigment {
      function {
        min(1, 1.15 * pow(max(0, 1 - max(0, x)), 1.7)
          * exp(-1.6 * pow(y / (0.16 + 0.55 * pow(max(0, x), 0.7)
                                + 0.10 * (f_noise3d(x * 9, y * 2, 3) - 0.5)), 2))
          * exp(-pow(min(0, x) / 0.06, 2)))
      }
      color_map {
        [0.00 srgb <0.35, 0.10, 0.06> transmit 1]
        [0.12 srgb <0.55, 0.16, 0.08> transmit 0.85]
        [0.35 srgb <0.85, 0.28, 0.12> transmit 0.45]
        [0.60 srgb <1.00, 0.60, 0.18> transmit 0.15]
        [0.82 srgb <1.00, 0.89, 0.48> transmit 0]
        [1.00 srgb <1.00, 0.99, 0.94> transmit 0]
      }
    }
    finish { emission 1.1 diffuse 0 ambient 0 } no_shadow
    scale <Length, Width, 1> rotate z * Angle translate Place
  }
#end
Meteor(44, 7.0, 58, At(184, 266, -400))
Meteor(26, 3.6, 64, At(222, 268, -400))
Meteor(17, 2.4, 57, At(150, 246, -400))

object { Satellite rotate y * 30 rotate x * -20 rotate z * 20 scale 3.0 translate At(60, 266, -300) }

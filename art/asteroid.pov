// One frame of an asteroid's tumble. Kind (1 to 4) chooses the rock, clock (0 to 1) how far it has turned. It is
// rendered in greys and coloured when it is packed: shapes read better at this size than stains do.
#include "common.inc"
#declare Wave = function(a, n, p) { sin(2 * pi * (n * a + p)) }
#switch (Kind)
  #case (1) // rolls over, with a nod
    #include "rock1.inc"
    #declare Size = 13.0;
    #declare Spin = transform {
      rotate y * (360 * clock + 14 * Wave(clock, 1, 0)) rotate x * 34 * Wave(clock, 1, 0.3)
      rotate <24, 0, -18>
    }
  #break
  #case (2) // end over end, and reels
    #include "rock2.inc"
    #declare Size = 15.2;
    #declare Spin = transform {
      rotate x * (360 * clock) rotate z * (360 * clock + 26 * Wave(clock, 2, 0.1)) rotate y * 36 * Wave(clock, 1, 0.6)
      rotate <20, 16, 35>
    }
  #break
  #case (3) // turns in jerks around a slanting axis
    #include "rock3.inc"
    #declare Size = 14.4;
    #declare Spin = transform {
      rotate y * (360 * clock + 20 * Wave(clock, 2, 0.25)) rotate z * 40 * Wave(clock, 1, 0.1)
      rotate <-30, 0, 52>
    }
  #break
  #else // shows its great wound, then its back
    #include "rock4.inc"
    #declare Size = 14.6;
    #declare Spin = transform {
      rotate x * (-360 * clock + 18 * Wave(clock, 1, 0.5)) rotate y * 44 * Wave(clock, 2, 0.2)
      rotate <-18, 0, -35>
    }
#end

Flat(32, 32)
light_source { SunWay * 100000 color rgb 0.80 parallel point_at 0 }
// A breath of light from the front and from the Earth, so that the night side keeps its shape.
light_source { <0.4, -0.2, -1> * 100000 color rgb 0.035 parallel point_at 0 shadowless }
light_source { <0.35, -1, -0.35> * 100000 color rgb 0.045 parallel point_at 0 shadowless }
light_source { <0.85, -0.25, 0.62> * 100000 color rgb 0.16 parallel point_at 0 shadowless }

object {
  Rock
  texture {
    pigment {
      function { min(1, max(0, (sqrt(x * x + y * y + z * z) - 0.55) / 0.45)) }
      color_map { [0.0 rgb 0.45] [0.5 rgb 0.85] [1.0 rgb 1.0] }
    }
    finish { diffuse 0.95 ambient 0 }
  }
  // Grit: light and dark spots a pixel or two across.
  texture {
    pigment {
      granite scale 0.42
      color_map {
        [0.00 rgb 0 transmit 0.48]
        [0.36 rgb 0 transmit 0.95]
        [0.55 rgb 1 transmit 1.00]
        [1.00 rgb 1 transmit 0.58]
      }
    }
    finish { diffuse 0.95 ambient 0 }
  }
  transform { Spin }
  scale Size
}

// One frame of an asteroid's tumble. Kind (1 to 4) chooses the rock, clock (0 to 1) how far it has turned.
#include "common.inc"
#include "rock.inc"
#switch (Kind)
  #case (1)
    #include "rock1.inc"
    #declare Colour = RockBrown; #declare Dust = srgb <0.78, 0.72, 0.64>;
    #declare Axis = <24, 0, -18>; #declare Size = 12.6; #declare Rim = srgb <0.50, 0.70, 0.95>;
  #break
  #case (2)
    #include "rock2.inc"
    #declare Colour = RockRust; #declare Dust = srgb <0.84, 0.56, 0.38>;
    #declare Axis = <62, 0, 20>; #declare Size = 13.2; #declare Rim = srgb <0.85, 0.80, 0.95>;
  #break
  #case (3)
    #include "rock3.inc"
    #declare Colour = RockSlate; #declare Dust = srgb <0.72, 0.78, 0.86>;
    #declare Axis = <-30, 0, 52>; #declare Size = 12.8; #declare Rim = srgb <0.50, 0.66, 0.95>;
  #break
  #else
    #include "rock4.inc"
    #declare Colour = RockOchre; #declare Dust = srgb <0.88, 0.77, 0.56>;
    #declare Axis = <-18, 0, -35>; #declare Size = 13.0; #declare Rim = srgb <0.72, 0.70, 1.00>;
#end

Flat(32, 32)
Sunlight(SunWay, 2.1)
Bounce(1.5)
// A breath of light from the front, so that the night side keeps its shape.
light_source { <0.4, -0.2, -1> * 100000 color srgb <0.62, 0.66, 0.80> * 0.40 parallel point_at 0 shadowless }
Edge(Rim, 1.2)

object {
  Rock
  RockTexture(Colour, Dust, 0)
  rotate y * 360 * clock
  rotate Axis
  scale Size
}

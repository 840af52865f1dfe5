// The end: the Earth broken open, its core laid bare, fragments drifting off.
#include "functions.inc"
#include "common.inc"
#include "earth.inc"

Flat(240, 320)
#declare Sun = vnormalize(<-0.70, 0.50, -0.40>);
SunFrom(Sun)
Sunlight(Sun, 1.5)
Bounce(0.2)

#declare Rough = function(a, b, c) {
  f_noise3d(a * 2.6, b * 2.6, c * 2.6) - 0.5 + 0.5 * (f_noise3d(a * 7, b * 7, c * 7) - 0.5)
  + 0.28 * (f_noise3d(a * 17, b * 17, c * 17) - 0.5)
}
// The blow came from the right; what it laid bare glows, white in the depth and red towards the crust.
#declare WX = 0.86; #declare WY = 0.18; #declare WZ = -0.86; #declare WR = 0.78;

#declare Magma = texture {
  pigment {
    function { min(1, max(0, sqrt(x * x + y * y + z * z) + 0.30 * Rough(x * 1.4, y * 1.4, z * 1.4))) }
    color_map {
      [0.35 srgb <1.00, 0.99, 0.90> * 1.3]
      [0.55 srgb <1.00, 0.86, 0.42> * 1.1]
      [0.70 srgb <1.00, 0.56, 0.15>]
      [0.82 srgb <0.80, 0.22, 0.08> * 0.8]
      [0.92 srgb <0.42, 0.10, 0.06> * 0.7]
      [0.97 srgb <0.16, 0.08, 0.07>]
    }
  }
  finish { emission 1.0 diffuse 0.3 }
}

#declare Skin = EarthSurface(14, 12, -14, 0.6)
#declare BrokenSurface =
  texture {
    function { sqrt(x * x + y * y + z * z) }
    texture_map {
      [0.988 Magma]
      [0.990 Skin]
    }
  }
union {
  isosurface {
    function {
      max(sqrt(x * x + y * y + z * z) - 1,
          WR + 0.42 * Rough(x, y, z) - sqrt((x - WX) * (x - WX) + (y - WY) * (y - WY) + (z - WZ) * (z - WZ)))
    }
    contained_by { sphere { 0, 1.001 } }
    max_gradient 5 accuracy 0.0005
    texture { BrokenSurface }
  }
  Air()
  scale 84 translate At(112, 112, 0)
}

// The end: the Earth broken open, its core laid bare, fragments drifting off.
#include "functions.inc"
#include "common.inc"
#declare AirHeight = 0.026;
#include "earth.inc"
#include "rock.inc"

Flat(240, 320)
#declare Sun = vnormalize(<-0.70, 0.50, -0.40>);
SunFrom(Sun)
Sunlight(Sun, 1.5)
Bounce(0.3)
Edge(srgb <0.50, 0.64, 0.92>, 1.3)

#declare Middle = At(108, 112, 0);
#declare Radius = 82;
#declare Lon = 14; #declare Lat = 14; #declare Roll = -14;

// The blow came from the right and tore out what lies in a rough ball around (WX, WY, WZ).
#declare WX = 1.12; #declare WY = 0.14; #declare WZ = -0.34; #declare WR = 0.86;
#declare Rough = function(a, b, c) {
  f_noise3d(a * 2.6, b * 2.6, c * 2.6) - 0.5 + 0.5 * (f_noise3d(a * 7, b * 7, c * 7) - 0.5)
  + 0.28 * (f_noise3d(a * 17, b * 17, c * 17) - 0.5)
}
// How deep a point lies inside the wound; negative outside.
#declare Torn = function(a, b, c) {
  WR + 0.42 * Rough(a, b, c) - sqrt((a - WX) * (a - WX) + (b - WY) * (b - WY) + (c - WZ) * (c - WZ))
}

#declare Magma = texture {
  pigment {
    function { min(1, max(0, sqrt(x * x + y * y + z * z) + 0.34 * Rough(x * 1.6, y * 1.6, z * 1.6))) }
    color_map {
      [0.34 srgb <1.00, 0.99, 0.90> * 1.4]
      [0.50 srgb <1.00, 0.88, 0.45> * 1.1]
      [0.63 srgb <1.00, 0.58, 0.16>]
      [0.74 srgb <0.85, 0.25, 0.10> * 0.85]
      [0.82 srgb <0.52, 0.13, 0.06> * 0.75]
      [0.90 srgb <0.40, 0.11, 0.06> * 0.75]
      [0.99 srgb <0.52, 0.20, 0.10> * 0.8]
    }
  }
  finish { emission 0.95 diffuse 0.5 }
}

#declare CrackMap = function {
  pigment { image_map { png "earth_cracks.png" map_type 1 interpolate 2 } Turn(Lon, Lat, Roll) }
}
#declare CloudMap = function {
  pigment { image_map { png "earth_clouds.png" map_type 1 interpolate 2 } Turn(Lon, Lat, Roll) }
}

// Skin outside, magma inside; Seared: how far around the wound the ground glows too.
#macro Broken(Skin, Seared)
  texture {
    function { sqrt(x * x + y * y + z * z) - 0.04 * (Torn(x, y, z) > -Seared) }
    texture_map {
      [0.974 Magma]
      [0.978 Skin]
    }
  }
#end
#declare Ground = EarthSurface(Lon, Lat, Roll, 0.8)
// The shards have left the night and catch what light there is.
#declare ShardGround = texture {
  pigment { image_map { png "earth_day.png" map_type 1 interpolate 2 } Turn(Lon, Lat, Roll) }
  finish { diffuse 0.9 ambient 0 }
}
light_source {
  <0.8, 0.25, -0.55> * 100000 color srgb <0.60, 0.68, 0.90> * 0.27
  parallel point_at 0 shadowless
}

#macro Shard(Low, High, Away, Spin)
  isosurface {
    function {
      max(max(sqrt(x * x + y * y + z * z) - 1, 0.10 - Torn(x, y, z)),
          max(max(Low - y + 0.30 * Rough(x * 1.6, z * 1.6, 4), y - High - 0.30 * Rough(x * 1.6, z * 1.6, 4)),
              max(0.84 - sqrt(x * x + y * y + z * z) + 0.22 * Rough(y, z, x), x - 0.78 - 0.55 * Rough(y * 1.5, z * 1.5, 9))))
    }
    contained_by { sphere { 0, 1.001 } }
    max_gradient 3.2 accuracy 0.0006
    Broken(ShardGround, -9)
    translate <-0.9, 0, 0.3> rotate Spin translate <0.9, 0, -0.3> translate Away
  }
#end

union {
  isosurface {
    function { max(sqrt(x * x + y * y + z * z) - 1, Torn(x, y, z)) }
    contained_by { sphere { 0, 1.001 } }
    max_gradient 3.2 accuracy 0.0006
    Broken(Ground, 0.035)
  }
  // Cracks run out from the wound over land and sea.
  sphere { 0, 1.0015
    pigment {
      function {
        min(1, max(0, pow(CrackMap(x, y, z).red, 1.1) * (1.25 + 1.15 * Torn(x, y, z))
                      + 0.9 * max(0, 1 + 9 * Torn(x, y, z))))
        * (Torn(x, y, z) < 0) * min(1, max(0, -6 * z - 0.6))
      }
      color_map {
        [0.28 srgb <0.20, 0.03, 0.02> transmit 1]
        [0.45 srgb <0.45, 0.08, 0.04> transmit 0.5]
        [0.62 srgb <0.90, 0.28, 0.10> transmit 0.1]
        [0.85 srgb <1.00, 0.60, 0.18> transmit 0]
        [1.00 srgb <1.00, 0.92, 0.60> transmit 0]
      }
    }
    finish { emission 1.1 diffuse 0 ambient 0 } hollow no_shadow
  }
  sphere { 0, 1.006
    pigment {
      function { (1 - CloudMap(x, y, z).transmit) * (Torn(x, y, z) < -0.04) * (z < 0.02) }
      color_map { [0 srgb <0.91, 0.93, 0.96> transmit 1] [1 srgb <0.91, 0.93, 0.96> transmit 0.05] }
    }
    finish { diffuse 1 ambient 0 } hollow no_shadow
  }
  Air()
  // What was torn out, in three pieces of crust.
  Shard(0.30, 2, <0.30, 0.16, -0.02>, <8, -20, 6>)
  Shard(-0.16, 0.26, <0.47, 0.02, -0.06>, <-4, -26, -8>)
  Shard(-2, -0.20, <0.30, -0.20, -0.02>, <-10, -14, -12>)
  scale Radius translate Middle
}

// The glare of the open core over everything near it.
disc { 0, z, 1
  pigment {
    function { pow(max(0, 1 - sqrt(x * x + y * y)), 2.2) }
    color_map {
      [0.0 srgb <0.9, 0.25, 0.08> transmit 1]
      [0.5 srgb <1, 0.45, 0.12> transmit 0.72]
      [1.0 srgb <1, 0.75, 0.35> transmit 0.45]
    }
  }
  finish { emission 1 diffuse 0 ambient 0 } no_shadow
  scale <92, 88, 1> translate Middle + <50, 8, 60>
}

// Fragments fly off, lit by the core on the side that faces it.
#declare Core = Middle + <30, 4, -60>;
light_source { Core color srgb <1.0, 0.50, 0.18> * 5 fade_distance 40 fade_power 1.6 shadowless }
#include "rock3.inc"
#declare Splinter = Rock;
#include "rock4.inc"
#declare Slab = Rock;
#declare Chance = seed(77);
#macro Fragment(Shape, Size, X, Y, Z)
  object { Shape RockTexture(srgb <0.34, 0.29, 0.27>, srgb <0.50, 0.45, 0.42>, 0.3)
    rotate 360 * <rand(Chance), rand(Chance), rand(Chance)> scale Size translate At(X, Y, Z) }
#end
Fragment(Splinter, 6, 226, 62, -40)
Fragment(Slab, 5, 205, 34, -60)
Fragment(Slab, 4, 232, 150, -40)
Fragment(Splinter, 5, 196, 176, -80)
Fragment(Slab, 3, 178, 30, -40)
Fragment(Splinter, 3, 232, 30, -40)
Fragment(Slab, 2.6, 172, 200, -40)
#for (I, 1, 46)
  #local A = radians(-62 + 124 * rand(Chance));
  #local D = 62 + 90 * pow(rand(Chance), 1.3);
  Fragment(Splinter, 0.7 + 1.5 * pow(rand(Chance), 3), 120 + D * cos(A), 108 - D * sin(A) * 0.95, -40)
#end
// Embers.
#for (I, 1, 150)
  #local A = radians(-75 + 150 * rand(Chance));
  #local D = 34 + 104 * pow(rand(Chance), 1.5);
  #local Heat = max(0, 1 - (D - 34) / 110) * (0.5 + 0.5 * rand(Chance));
  sphere { At(122 + D * cos(A), 108 - D * sin(A), -90), 0.30 + 0.35 * rand(Chance)
    pigment { color srgb <1, 0.25 + 0.65 * Heat, 0.08 + 0.5 * Heat * Heat> }
    finish { emission 0.35 + 1.0 * Heat diffuse 0 ambient 0 } no_shadow }
#end

// The sky is quiet where the texts stand.
#declare Quiet = srgb <0.012, 0.020, 0.043>;
box { <-120, -160, 0>, <120, 160, 0.1>
  pigment {
    gradient y scale 320 translate y * -160
    color_map { [0.02 Quiet transmit 0.30] [0.10 Quiet transmit 0.15] [0.30 Quiet transmit 0.15] [0.40 Quiet transmit 1] }
  }
  finish { emission 1 diffuse 0 ambient 0 } no_shadow
  translate z * 1500
}

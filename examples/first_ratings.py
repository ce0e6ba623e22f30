"""First results of the package: one case, and a conductor of the library over a summer day."""

import pathlib

import numpy as np

import zel

example = pathlib.Path(__file__).parent / "380kV-twin-264-34.json"
print(f"{example.name} at 80 °C:")
for method, rating in zel.rate(example).items():
    print(f"  {method:6} {rating.current:7.1f} A")

hours = np.arange(24)
day = np.datetime64("2026-06-21") + hours.astype("timedelta64[h]")
sun = np.sin(np.pi * (hours - 4) / 16).clip(0)  # from 4 to 20 h UTC
ratings = zel.rate(
    methods="TB601",
    conductor="264-AL1/34-ST1A",
    conductor_temperature=80,
    frequency=50,
    emissivity=0.6,
    absorptivity=0.6,
    sub_conductors=2,
    altitude=100,
    latitude=51,
    longitude=10,
    line_azimuth=0,
    time=day,
    wind_speed=0.6 + 2 * sun,
    wind_from_direction=270,
    air_temperature=18 + 14 * sun,
    ground_temperature=20,
    global_radiation=900 * sun,
    albedo=0.2,
)
print("\nthe same conductor, two in a bundle, by TB601 over 21 June (A):")
for block in ratings.current.reshape(4, 6):
    print("  " + " ".join(f"{current:7.1f}" for current in block))
print(f"codes: {', '.join(f'{name} {count.count}' for name, count in ratings.codes.items())}")

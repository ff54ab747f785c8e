#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Choose the smallest part of a family with at least N LUTs in a package,
validate it and print its device data report.

    pick_part.py ZR1 20000 BG256 [--asc ASC10] [--data DIR]
"""

import argparse
import sys

import devctrl


def smallest_part(catalogue, family, luts, package):
    """The part with the fewest LUTs (then the first in natural order) of
    those with at least `luts` in `package`; None when there is none."""
    names = catalogue.parts(family, where=[f"LUT>={luts}", f"Package={package}"])
    if not names:
        return None
    best = min(names, key=lambda name: int(catalogue.part(name).item("LUT")))
    return catalogue.part(best)


def main(argv=None):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("family", help="family name or PM code, e.g. ZR1")
    parser.add_argument("luts", type=int, help="the least number of LUTs")
    parser.add_argument("package", help="package, e.g. BG256")
    parser.add_argument("--asc", action="append", default=[], help="link an ASC chip")
    parser.add_argument("--data", help="data directory (default: the library's)")
    args = parser.parse_args(argv)

    try:
        with devctrl.Catalogue(args.data) as catalogue:
            part = smallest_part(catalogue, args.family, args.luts, args.package)
            if part is None:
                print(f"no {args.family} part in {args.package} has {args.luts} LUTs",
                      file=sys.stderr)
                return 1
            print(f"{part.name}: {part.device} in {part.package}, speed {part.speed}, "
                  f"{part.condition}, {part.item('LUT')} LUTs")
            verdict = part.validate(asc=args.asc)
            print(f"validation: {verdict.message}")
            if not verdict:
                return 1
            width = max(len(name) for name, _ in part.report(asc=args.asc))
            for name, value in part.report(asc=args.asc):
                print(f"  {name:<{width}}  {value}")
    except devctrl.UnknownNameError as error:
        print(f"pick_part: {error}", file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    sys.exit(main())

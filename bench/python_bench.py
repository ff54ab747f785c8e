#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What a query costs through the Python package, on the million-part
catalogue the C++ benchmarks use (seed 1), for the comparison in README.md.

    PYTHONPATH=build/python python3 bench/python_bench.py build/devctrl [DIR]

Generates the catalogue into DIR (a temporary directory by default) unless
DIR already holds one.
"""

import os
import statistics
import subprocess
import sys
import tempfile
import time

import devctrl

PARTS = 1000000


def median_seconds(call, repeat):
    """Median (wall, CPU) seconds of `call`: the machine is shared, and the
    C++ figures are compared by CPU time."""
    wall, cpu = [], []
    for _ in range(repeat):
        start, start_cpu = time.perf_counter(), time.process_time()
        call()
        wall.append(time.perf_counter() - start)
        cpu.append(time.process_time() - start_cpu)
    return statistics.median(wall), statistics.median(cpu)


def main(tool, directory):
    if not os.path.isdir(directory) or not os.listdir(directory):
        subprocess.run([tool, "-q", "generate", "--parts", str(PARTS), "--seed", "1", directory],
                       check=True)
    start = time.perf_counter()
    catalogue = devctrl.Catalogue(directory)
    print(f"load: {time.perf_counter() - start:.2f} s")

    pms = catalogue.pms(loaded_only=True)
    sizes = {pm: len(catalogue.parts(pm)) for pm in pms}
    largest = max(sizes, key=sizes.get)
    print(f"largest family: {largest}, {sizes[largest]} parts")

    # 1,000 parts of every family, spread over each, as the C++ lookups use.
    names = []
    for pm in pms:
        parts = catalogue.parts(pm)
        names += parts[::max(1, len(parts) // 1000)][:1000]
    for name in names[:1000]:
        catalogue.part(name)  # first round builds the indexes, as in C++
    wall, cpu = median_seconds(lambda: [catalogue.part(n) for n in names], 3)
    print(f"part(): {wall / len(names) * 1e6:.2f} us wall, {cpu / len(names) * 1e6:.2f} us CPU "
          f"per call over {len(names)} names")

    where = "LUT>=20000"
    found = len(catalogue.parts(largest, where=where))
    wall, cpu = median_seconds(lambda: catalogue.parts(largest, where=where), 5)
    print(f"parts({largest!r}, where={where!r}): {wall * 1e3:.1f} ms wall, {cpu * 1e3:.1f} ms CPU, "
          f"{found} parts")
    wall, cpu = median_seconds(lambda: catalogue.parts(largest), 5)
    print(f"parts({largest!r}): {wall * 1e3:.1f} ms wall, {cpu * 1e3:.1f} ms CPU, "
          f"{sizes[largest]} parts")


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    if len(sys.argv) > 2:
        main(sys.argv[1], sys.argv[2])
    else:
        with tempfile.TemporaryDirectory() as scratch:
            main(sys.argv[1], os.path.join(scratch, "data"))

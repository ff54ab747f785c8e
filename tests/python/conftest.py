# SPDX-License-Identifier: MIT
"""Shared fixtures: the sample and a generated installation, the tool of the
same build, and a catalogue per installation.

The library holds one catalogue per process, so each fixture closes its
catalogue when its module ends and the next module may load another
directory.
"""

import gc
import json
import os
import shutil
import subprocess

import pytest

import devctrl

SAMPLE = os.environ.get("DEVCTRL_SAMPLE_DATA") or os.path.join(
    os.path.dirname(__file__), "..", "..", "data")
TOOL = os.environ.get("DEVCTRL_TOOL") or shutil.which("devctrl")
GENERATED_PARTS = 4000


def run_tool(data_dir, *args, check=True):
    """The tool's JSON answer for `args` on `data_dir`."""
    if not TOOL:
        pytest.skip("the devctrl tool of this build is not known (set DEVCTRL_TOOL)")
    done = subprocess.run([TOOL, "--json", "-q", "--data", data_dir, *args],
                          capture_output=True, text=True, check=False)
    if check and done.returncode != 0:
        raise AssertionError(f"devctrl {' '.join(args)} failed: {done.stderr}")
    return json.loads(done.stdout) if done.stdout.strip() else None


def open_catalogue(data_dir, **options):
    gc.collect()  # parts of earlier tests keep their catalogue's data loaded
    return devctrl.Catalogue(data_dir, **options)


@pytest.fixture(scope="session")
def sample_dir():
    return os.path.abspath(SAMPLE)


@pytest.fixture(scope="session")
def generated_dir(tmp_path_factory):
    if not TOOL:
        pytest.skip("the devctrl tool of this build is not known (set DEVCTRL_TOOL)")
    directory = tmp_path_factory.mktemp("generated") / "data"
    subprocess.run([TOOL, "-q", "generate", "--parts", str(GENERATED_PARTS), "--seed", "7",
                    str(directory)], check=True, capture_output=True)
    return str(directory)


@pytest.fixture(scope="module")
def sample(sample_dir):
    with open_catalogue(sample_dir) as catalogue:
        yield catalogue


@pytest.fixture(scope="module")
def generated(generated_dir):
    with open_catalogue(generated_dir) as catalogue:
        yield catalogue

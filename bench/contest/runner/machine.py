# SPDX-License-Identifier: MIT
"""The machine and the compiler of a run, as far as they matter to speeds. Names neither the host nor a path."""

import os
import re
import subprocess
from pathlib import Path


def describe(build: Path) -> list[str]:
    """Lines for the page."""
    return [f"Processor: {_processor()}", f"System: {_system()}", f"Compiler: {_compiler(build)}"]


def _field(file: str, pattern: str, otherwise: str) -> str:
    try:
        found = re.search(pattern, Path(file).read_text(), re.MULTILINE)
    except OSError:
        found = None
    return found[1].strip() if found else otherwise


def _processor() -> str:
    flags = _field("/proc/cpuinfo", r"^flags\s*:(.*)$", "").split()
    widest = next((flag for flag in ("avx512bw", "avx2", "sse4_1") if flag in flags), "no vectors known")
    virtual = ", virtual" if "hypervisor" in flags else ""
    model = _field("/proc/cpuinfo", r"^model name\s*:(.*)$", "unknown")
    family = "/".join(_field("/proc/cpuinfo", rf"^{key}\s*:(.*)$", "?") for key in ("cpu family", "model"))
    cache = _field("/proc/cpuinfo", r"^cache size\s*:(.*)$", "?")
    return f"{model} (family/model {family}, {widest}, {cache} of cache a core), {os.cpu_count()} cores{virtual}"


def _system() -> str:
    return _field("/etc/os-release", r'^PRETTY_NAME="?([^"\n]*)', "unknown")


def _compiler(build: Path) -> str:
    path = _field(str(build / "CMakeCache.txt"), r"^CMAKE_CXX_COMPILER:\w+=(.*)$", "")
    if not path:
        return "unknown"
    return subprocess.run([path, "--version"], capture_output=True, text=True, check=True).stdout.splitlines()[0]

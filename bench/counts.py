# SPDX-License-Identifier: Apache-2.0
"""Runs a build's bench/cost under the emulator: instructions and platform calls of each case, side by side."""
import bisect
import collections
import os
import re
import subprocess
import tempfile

# Calls that both sides must make equally often.
PLATFORM = re.compile(
    r"(android::CameraParameters2::(get|getInt|set)\("
    r"|android::VendorTagDescriptor::(lookupTag|getGlobal|getAllSectionNames)"
    r"|android::CameraMetadata::(find|update)\(|property_get$|__android_log_print$|android::String16::String16)")

# Both sides are counters: `functions` of instructions, `calls` of entries to functions of the platform.
Side = collections.namedtuple("Side", "instructions functions calls")
Case = collections.namedtuple("Case", "name marked no_allocation allocations floor library")


def functions_of(path, binutils):
    """Returns addresses and names of the functions in a library's symbol table, in order."""
    found = {}
    for dynamic in ([], ["--dynamic"]):
        listed = subprocess.run([f"{binutils}nm", "-C", "--defined-only", *dynamic, path], check=True, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
        for match in re.finditer(r"^(\w+) [tTwWi] ([^$].*)$", listed, re.M):
            found.setdefault(int(match[1], 16), match[2])
    return sorted(found.items())


class Process:
    """The places of libraries and functions in the measured program."""

    def __init__(self, maps, binutils):
        self.libraries = {}
        for match in re.finditer(r"^(\w+)-(\w+) \S+ (\w+) .* (/\S+)$", maps, re.M):
            begin, end, offset = (int(match[i], 16) for i in (1, 2, 3))
            base, _ = self.libraries.get(match[4], (begin - offset, end))
            self.libraries[match[4]] = base, end
        self.functions = {path: functions_of(path, binutils) for path in self.libraries}

    def function(self, address):
        """Returns the library, the function and the distance from its beginning."""
        for path, (base, end) in self.libraries.items():
            if base <= address < end:
                functions = self.functions[path]
                place = bisect.bisect_right(functions, address - base, key=lambda function: function[0]) - 1
                if place >= 0:
                    return os.path.basename(path), functions[place][1], address - base - functions[place][0]
                return os.path.basename(path), "", 1
        return "", "", 1

    def side(self, blocks):
        functions, calls = collections.Counter(), collections.Counter()
        for line in blocks.splitlines():
            address, instructions, times = line.split(" ")
            library, name, distance = self.function(int(address, 16))
            functions[library, name] += int(instructions) * int(times)
            if distance == 0 and PLATFORM.search(name):
                calls[name] += int(times)
        return Side(sum(functions.values()), functions, calls)


def measure(build, emulator, binutils, plugin, short=False):
    """Returns all cases, or with `short` the cases without growing inputs."""
    with tempfile.TemporaryDirectory() as folder:
        output = subprocess.run(
            [*emulator, "-plugin", f"{plugin},out={folder}/blocks", f"{build}/bench/cost", *["--short"] * short],
            check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
            env={}).stdout  # an empty environment: the stack begins at the same depth in every run
        with open(f"{folder}/blocks", encoding="ascii") as file:
            between = file.read().split("\n\n")
    maps, lines = output.split("\n\n")
    process = Process(maps, binutils)
    # Blocks before the first mark and between the cases are not counted.
    sides = [process.side(blocks) for blocks in between[1::2]]
    marks = sides.pop(0).instructions
    sides = [side._replace(instructions=side.instructions - marks) for side in sides]
    cases = []
    for place, line in enumerate(lines.splitlines()):
        name, marked, no_allocation, *allocations = line.split("|")
        cases.append(Case(name, marked == "1", no_allocation == "1", [int(each) for each in allocations],
                          *sides[2 * place:2 * place + 2]))
    return cases

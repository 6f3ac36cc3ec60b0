"""Runs build/bench/bench/cost under callgrind: instructions and platform calls of each case, side by side."""
import collections
import os
import re
import subprocess
import tempfile

PROGRAM = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../build/bench/bench/cost")

# Calls that both sides must make equally often.
PLATFORM = re.compile(
    r"(android::CameraParameters2::(get|getInt|set)\("
    r"|android::VendorTagDescriptor::(lookupTag|getGlobal|getAllSectionNames)"
    r"|android::CameraMetadata::(find|update)\(|property_get$|__android_log_print$|android::String16::String16)")

Case = collections.namedtuple("Case", "name mark limit no_allocation allocations floor library")


class Side:
    """What callgrind saw of one side of a case."""

    def __init__(self, path):
        names = {}
        self.calls = collections.Counter()
        callee = None
        with open(path, encoding="utf-8", errors="replace") as lines:
            for line in lines:
                if match := re.match(r"(c?fn)=\((\d+)\)(?: (.*))?", line):
                    kind, number, name = match.groups()
                    if name:
                        names[number] = name
                    if kind == "cfn":
                        callee = re.sub(r"'\d+$", "", names[number])
                elif match := re.match(r"calls=(\d+)", line):
                    if PLATFORM.search(callee):
                        self.calls[callee] += int(match[1])
                elif match := re.match(r"(?:summary|totals): (\d+)", line):
                    self.instructions = int(match[1])


def measure(program=PROGRAM):
    """All cases. The program says what they are, and dumps the sides floor and library one after the other."""
    with tempfile.TemporaryDirectory() as folder:
        output = subprocess.run(
            ["valgrind", "-q", "--tool=callgrind", "--instr-atstart=no",
             f"--callgrind-out-file={folder}/out", program, "--count"],
            check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
        cases = []
        for index, line in enumerate(output.splitlines()):
            name, mark, limit, no_allocation, *allocations = line.split("|")
            sides = [Side(f"{folder}/out.{2 * index + part}") for part in (1, 2)]
            cases.append(Case(name, float(mark), float(limit), no_allocation == "1", [int(a) for a in allocations], *sides))
    return cases


def ratio(case):
    return case.library.instructions / case.floor.instructions

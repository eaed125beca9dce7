"""Runs our cross-validated models and full decompositions of the same tables, and prints the ratios."""

import os
import subprocess
import sys
import tempfile
import time

import numpy

ROUNDS = 3
PROBLEMS = (  # rows, columns, rank, components or 0 for as many as the rules say
    (60, 20000, 3, 0),
    (100, 20000, 8, 5),
    (30000, 400, 5, 5),
)
MEMORY_SIZE = (30000, 400, 5)
# Runs a program and prints the KiB that it took. What a process takes counts that of the one which
# started it, so that this is to be a small one.
PEAK = """
import resource, subprocess, sys
subprocess.run(sys.argv[1:], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)
"""


def ours(program, problem, path):
    """Seconds, components, iterations and the share of the sum of squares left."""
    output = subprocess.run([program, *map(str, problem), "1", path], check=True, capture_output=True)
    seconds, count, iterations, unexplained = output.stdout.split()
    return float(seconds), int(count), int(iterations), float(unexplained)


def decomposition(path, rows, columns):
    table = numpy.fromfile(path, numpy.float32).reshape(rows, columns).astype(numpy.float64)
    start = time.perf_counter()
    numpy.linalg.svd(table, full_matrices=False)
    return time.perf_counter() - start


def compare(program, problem, folder):
    rows, columns, rank, components = problem
    path = os.path.join(folder, "table")
    models, decompositions = [], []
    for _ in range(ROUNDS):  # by turns, so that what else the machine does falls on both
        models.append(ours(program, problem, path))
        decompositions.append(decomposition(path, rows, columns))
    seconds, count, iterations, unexplained = min(models)
    what = f"{count} components by the rules" if components == 0 else f"{count} components"
    print(f"{rows} x {columns}, rank {rank}: {what} in {seconds:.3f} s, {iterations} iterations, "
          f"{unexplained:.6f} unexplained; {seconds / min(decompositions):.2f} times the full "
          f"decomposition", flush=True)


def compare_memory(fit, program, folder):
    rows, columns, rank = MEMORY_SIZE
    table, file = os.path.join(folder, "table"), os.path.join(folder, "table.vdo")
    ours(fit, (rows, columns, rank, 1), table)
    values = numpy.fromfile(table, numpy.float32).reshape(rows, columns)
    text = os.path.join(folder, "table.csv")
    with open(text, "w", encoding="utf-8") as csv:
        csv.write("," + ",".join(f"V{j}" for j in range(columns)) + "\n")
        for i, row in enumerate(values):
            csv.write(f"O{i}," + ",".join(map(str, row)) + "\n")
    subprocess.run([program, "convert", text, file], check=True, capture_output=True)
    peak = subprocess.run([sys.executable, "-c", PEAK, program, "pc", file, "--components", "5"],
                          check=True, capture_output=True)
    print(f"zemva pc on {rows} x {columns}: {int(peak.stdout) * 1024 / os.path.getsize(file):.2f} "
          f"times the file in memory at the most")


def main(fit, program):
    with tempfile.TemporaryDirectory() as folder:
        for problem in PROBLEMS:
            compare(fit, problem, folder)
        compare_memory(fit, program, folder)


main(*sys.argv[1:])

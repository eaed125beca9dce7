"""Writes the principal components of the complete samples, from NumPy's singular value decomposition.

    python3 make_reference.py

One file a sample: for each of the first four components its share of the sum of squares and its
loadings, of the data centred and scaled to unit variance. The largest loading is positive.
"""
import csv
import pathlib

import numpy

HERE = pathlib.Path(__file__).parent
SAMPLES = HERE.parent.parent / "samples"

for name in ("USArrests", "iris", "mtcars", "spectra"):
    with open(SAMPLES / f"{name}.csv", encoding="utf-8") as grid:
        rows = list(csv.reader(grid))[1:]
    x = numpy.array([row[2:] for row in rows], dtype=numpy.float32).astype(float)
    x = (x - x.mean(0)) / x.std(0, ddof=1)
    _, s, vt = numpy.linalg.svd(x, full_matrices=False)
    with open(HERE / f"{name}.csv", "w", encoding="utf-8") as out:
        for share, p in list(zip(s**2 / numpy.sum(s**2), vt))[:4]:
            p = p * numpy.sign(p[numpy.argmax(abs(p))])
            out.write(",".join(f"{v:.8g}" for v in (share, *p)) + "\n")

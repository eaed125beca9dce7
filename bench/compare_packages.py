"""Runs our fit and those of other packages on the same tables and prints the ratios of their times."""

import os
import subprocess
import sys
import tempfile
import time

COMPONENTS = 5
MISSING_SHARE = 0.05
GROUPS = 7
ROUNDS = 5

try:
    import numpy
except ImportError:
    numpy = None
try:
    import sklearn.cross_decomposition
    import sklearn.decomposition
    import sklearn.model_selection
except ImportError:
    sklearn = None


def ours(program, rows, columns, missing_share, groups, path, responses=0):
    """Seconds in all and for the components, iterations, and the share of the sum of squares left."""
    arguments = [rows, columns, responses, missing_share, groups, 2, path]
    output = subprocess.run([program, *map(str, arguments)], check=True, capture_output=True)
    seconds, components, iterations, unexplained = output.stdout.split()
    return float(seconds), float(components), int(iterations), float(unexplained)


def pca_methods(script, path, rows, columns, threshold, groups):
    """Seconds and the share left, or None without R or the package."""
    arguments = [path, rows, columns, threshold, groups]
    try:
        output = subprocess.run(["Rscript", script, *map(str, arguments)], capture_output=True)
    except FileNotFoundError:
        return None
    return tuple(map(float, output.stdout.split())) if output.returncode == 0 else None


def numpy_nipals(table):
    """The same iteration in NumPy, in single precision throughout; its seconds and the share left."""
    start = time.perf_counter()
    residuals = table.copy()
    for _ in range(COMPONENTS):
        scores = residuals[:, numpy.argmax((residuals * residuals).sum(0))].copy()
        while True:
            loadings = scores @ residuals
            loadings /= numpy.sqrt(loadings @ loadings)
            before, scores = scores, residuals @ loadings
            change = scores - before
            if change @ change <= 1e-10 * (scores @ scores):
                break
        residuals -= numpy.outer(scores, loadings)
    seconds = time.perf_counter() - start
    return seconds, float((residuals**2).sum() / (table**2).sum())


def scikit_learn(table):
    """Seconds of PCA by the truncated decomposition, which centres; no NIPALS is in there."""
    start = time.perf_counter()
    sklearn.decomposition.PCA(COMPONENTS, svd_solver="arpack").fit(table)
    return time.perf_counter() - start


def pls_by_scikit_learn(table, responses, groups):
    """Seconds of its PLSRegression, which centres; with groups, of predicting what each leaves out."""
    x, y = table[:, :-responses], table[:, -responses:]
    model = sklearn.cross_decomposition.PLSRegression(COMPONENTS, scale=False, max_iter=10000)
    start = time.perf_counter()
    if groups:
        sklearn.model_selection.cross_val_predict(
            model, x, y, cv=sklearn.model_selection.KFold(groups))
    else:
        model.fit(x, y)
    return time.perf_counter() - start


def pls_by_r(script, path, rows, columns, responses, method):
    """Seconds of R's package pls, or None without it."""
    arguments = [path, rows, columns, responses, method]
    try:
        output = subprocess.run(["Rscript", script, *map(str, arguments)], capture_output=True)
    except FileNotFoundError:
        return None
    return float(output.stdout) if output.returncode == 0 else None


def compare_pls(program, script, rows, columns, responses, folder):
    path = os.path.join(folder, "responses")
    fits, gaps, validated, by_others = [], [], [], {}
    for _ in range(ROUNDS):  # by turns, as below
        gaps.append(ours(program, rows, columns, MISSING_SHARE, 0, path, responses)[0])
        validated.append(ours(program, rows, columns, 0, GROUPS, path, responses)[0])
        fits.append(ours(program, rows, columns, 0, 0, path, responses)[0])
        if sklearn and numpy:
            table = numpy.fromfile(path, numpy.float32).reshape(rows, columns + responses)
            for name, groups in (("scikit-learn", 0), ("scikit-learn, validated", GROUPS)):
                seconds = pls_by_scikit_learn(table, responses, groups)
                by_others.setdefault(name, []).append(seconds)
    for method in ("oscorespls", "kernelpls"):
        seconds = pls_by_r(script, path, rows, columns, responses, method)
        if seconds is not None:
            by_others[method] = [seconds]
    fit, validation = min(fits), min(validated)
    print(f"  {responses} responses by partial least squares: a model in {fit * 1e3:.1f} ms, "
          f"{min(gaps) / fit:.2f} times that with {MISSING_SHARE:.0%} missing, "
          f"{validation / fit:.2f} times cross-validated")
    for name, seconds in by_others.items():
        own = validation if "validated" in name else fit
        print(f"  {name:23} {min(seconds) / own:7.2f} times ours", flush=True)


def fastest(runs):
    return min(runs, key=lambda run: run[0])


def compare(program, script, rows, columns, folder):
    complete = os.path.join(folder, "complete")
    missing = os.path.join(folder, "missing")
    fits, by_numpy, gaps, validated = [], [], [], []
    for _ in range(ROUNDS):  # by turns, so that what else the machine does falls on all
        fits.append(ours(program, rows, columns, 0, 0, complete))
        if numpy:
            table = numpy.fromfile(complete, numpy.float32).reshape(rows, columns)
            by_numpy.append(numpy_nipals(table))
        gaps.append(ours(program, rows, columns, MISSING_SHARE, 0, missing))
        validated.append(ours(program, rows, columns, 0, GROUPS, complete))
    fit, gap, validation = fastest(fits), fastest(gaps), fastest(validated)

    components = min(run[1] for run in fits)
    print(f"\n{rows} x {columns}: a model of {COMPONENTS} components in {fit[0] * 1e3:.1f} ms, "
          f"the components alone in {components * 1e3:.1f}, "
          f"{fit[2]} iterations, {fit[3]:.6f} unexplained")
    print(f"  with {MISSING_SHARE:.0%} missing   {gap[0] / fit[0]:6.2f} times the complete fit")
    print(f"  cross-validated   {validation[0] / fit[0]:6.2f} times the complete fit")
    if by_numpy:
        seconds, unexplained = fastest(by_numpy)
        print(f"  NumPy float32     {seconds / components:6.2f} times our components, "
              f"{seconds / fit[0]:.2f} times the model, {unexplained:.6f} unexplained")
    if sklearn and numpy:
        print(f"  scikit-learn PCA  {scikit_learn(table) / fit[0]:6.2f} times ours")
    # The package stops at an absolute change. At its own threshold, and at ours in terms of the
    # first component, which is about half of what is explained.
    squares = numpy.square(table, dtype=numpy.float64).sum() if numpy else rows * columns
    for name, threshold in (("1e-6", 1e-6), ("ours", 1e-10 * squares / 4)):
        for what, path, groups, own in (("complete", complete, 0, fit),
                                        ("5% missing", missing, 0, gap),
                                        ("Q2, imputed", complete, GROUPS, validation)):
            theirs = pca_methods(script, path, rows, columns, threshold, groups)
            if theirs:
                print(f"  pcaMethods {what:12} {theirs[0] / own[0]:7.1f} times ours, "
                      f"{theirs[1]:.6f} unexplained (threshold {name})", flush=True)


def main(program, script, pls_script, *sizes):
    with tempfile.TemporaryDirectory() as folder:
        for size in sizes:
            rows, columns = map(int, size.split("x"))
            compare(program, script, rows, columns, folder)
            for responses in (1, 3):
                compare_pls(program, pls_script, rows, columns, responses, folder)


main(*sys.argv[1:])

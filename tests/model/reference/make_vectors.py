"""Writes the result vectors of a small data set, of its work set and prediction set and of two models of it, for the tests.

    python3 make_vectors.py

It follows the definitions in double precision with NumPy and SciPy. The data are x1, x2, x3, y1 and y2; of x2 and y2 the models
take the logarithm. The fourth observation is left out, and the second of the prediction set. Both models have two components, are
centred and scaled to unit variance and cross-validated in seven groups. Lines of vectors.csv: "data" and a row, first the thirteen
of the data set, then the six of the prediction set; an object, a vector, its first and its last label and its elements, -99 for
what is missing; an object, a vector and the status with which it is refused, where that is not 8016.
"""
import pathlib

import numpy
from scipy import stats

N_DS, N_PSDS, LEFT_OUT, LEFT_OUT_PS = 13, 6, 3, 1
N, NPS, K, M, A, GROUPS, CAP = N_DS - 1, N_PSDS - 1, 3, 2, 2, 7, 3.0
OBS_DS, OBS_PSDS = f"o1,o{N_DS}", f"o1,o{N_PSDS}"

random = numpy.random.default_rng(2)
a, b = random.uniform(-1, 1, (2, N_DS + N_PSDS))
noise = random.uniform(-1, 1, (4, N_DS + N_PSDS))
table = numpy.column_stack([a + 0.2 * noise[0], numpy.exp(b), a - b + 0.3 * noise[1], 2 * a + b + 0.2 * noise[2] + 4,
                            numpy.exp(a + 0.5 * b + 0.2 * noise[3]) + 0.1])
table = numpy.round(table, 3).astype(numpy.float32).astype(float)
table[-1, 0] = table[-2, 4] = numpy.nan
rows_of_models = numpy.delete(numpy.arange(N_DS), LEFT_OUT)
rows_of_set = N_DS + numpy.delete(numpy.arange(N_PSDS), LEFT_OUT_PS)
lines = ["data," + ",".join("-99" if numpy.isnan(value) else f"{value:.3f}" for value in row) for row in table]


def squares(values, axis=None):
    return numpy.nansum(numpy.asarray(values) ** 2, axis)


class Block:
    """As in the data, as the models take it, and what is left of it centred and scaled after 0, 1 and 2 components."""

    def __init__(self, name, first, log, training=None):
        self.name, self.log = name, log
        self.raw = table[rows_of_models if training is None else rows_of_set, first]
        self.taken = numpy.where(self.log, numpy.log10(numpy.abs(self.raw)), self.raw)
        own = training or self
        if training is None:
            self.centre, self.weight = self.taken.mean(0), 1 / self.taken.std(0, ddof=1)
        self.centre, self.weight = own.centre, own.weight
        self.left = [(self.taken - self.centre) * self.weight]
        self.fitted = [numpy.zeros(self.taken.shape)]

    def at(self, stage):
        return self.taken if stage < 0 else self.left[stage]

    def take_off(self, t, p):
        self.left.append(self.left[-1] - numpy.outer(t, p))
        self.fitted.append(self.fitted[-1] + numpy.outer(t, p))

    def units(self, scaled, units):
        if units == "Sc":
            return scaled
        taken = scaled / self.weight + self.centre
        return taken if units == "Tr" else numpy.where(self.log, 10**taken, taken)

    def value(self, units):
        return {"": self.raw, "Tr": self.taken, "Sc": self.left[0]}[units]

    def predicted(self, stage, units):
        return self.units(self.fitted[stage], units)

    def residual(self, stage, units):
        return self.value(units) - self.predicted(stage, units)


class Model:
    def __init__(self, is_pls):
        self.is_pls = is_pls
        self.x, self.y = Block("X", slice(0, K), [False, True, False]), Block("Y", slice(K, None), [False, True])
        self.x_ps = Block("X", slice(0, K), self.x.log, self.x)
        self.y_ps = Block("Y", slice(K, None), self.y.log, self.y)
        self.t, self.p, self.u, self.w, self.c, self.t_ps, self.iterations = [], [], [], [], [], [], []
        self.press = []
        for _ in range(A):
            self.fit()
        self.predict()

    def fit(self):
        e, f = self.x.left[-1], self.y.left[-1]
        if self.is_pls:
            start = f[:, squares(f, 0).argmax()]
            t, u, w, c, iterations = pls(e, f, start)
            p = e.T @ t / squares(t)
            errors = numpy.zeros(M)
            for group in range(GROUPS):
                out = numpy.arange(N) % GROUPS == group
                _, _, w_in, c_in, _ = pls(e[~out], f[~out], u[~out])
                errors += squares(f[out] - numpy.outer(e[out] @ w_in, c_in), 0)
            for store, vector in ((self.u, u), (self.w, w), (self.c, c)):
                store.append(vector)
        else:
            everything = numpy.ones(e.shape, bool)
            t, p, iterations = principal(e, everything, e[:, squares(e, 0).argmax()], CAP)
            labels = numpy.zeros(K, int)
            for step in range(0, K * GROUPS, GROUPS):
                labels[step % K] = (step // K + 1) % GROUPS
            errors = numpy.zeros(K)
            for _ in range(GROUPS):
                usable = (numpy.arange(1, N + 1) % GROUPS)[:, None] != labels
                t_in, p_in, _ = principal(e, usable, t, CAP * GROUPS / (GROUPS - 1))
                errors += numpy.where(usable, 0, (e - numpy.outer(t_in, p_in)) ** 2).sum(0)
                labels = numpy.append((labels[-1] + 1) % GROUPS, labels[:-1])
            self.u, self.w, self.c = [], [], []
        self.press.append(errors)
        self.iterations.append(iterations)
        self.t.append(t), self.p.append(p)
        self.x.take_off(t, p)
        if self.is_pls:
            self.y.take_off(t, c)

    def predict(self):
        """Least squares on the loadings of what is present, or with weights what is present made up to the whole."""
        rows = self.x_ps.left[0]
        is_present = ~numpy.isnan(rows)
        loadings = numpy.array(self.p).T
        by_row = [numpy.linalg.lstsq(loadings[here], row[here], rcond=None)[0] for row, here in zip(rows, is_present)]
        for stage in range(A):
            t = numpy.array(by_row)[:, stage]
            if self.is_pls:
                weights = self.w[stage]
                usable = is_present @ weights**2
                t = numpy.nansum(self.x_ps.left[-1] * weights, 1) * numpy.minimum(1 / usable, CAP)
                self.y_ps.take_off(t, self.c[stage])
            self.t_ps.append(t)
            self.x_ps.take_off(t, self.p[stage])

    def df(self, block, stage):
        columns = block.left[0].shape[1]
        if stage < 0:
            return N * columns
        return (N - 1 - stage) * (columns - (stage if block.name == "X" else 0))

    def s2(self, block, stage):
        return squares(block.at(stage)) / self.df(block, stage)

    def s2v(self, block, stage):
        return squares(block.at(stage), 0) / (N if stage < 0 else N - 1 - stage)

    def explained(self, sums, start, end):
        return (sums(start) - sums(end)) / sums(0)

    def q2(self):
        """Of all and by variable, of each component and cumulated."""
        target = self.y if self.is_pls else self.x
        of_each, by_variable = [], []
        for stage, errors in enumerate(self.press):
            of_each.append(1 - errors.sum() / squares(target.left[stage]))
            by_variable.append(1 - errors / squares(target.left[stage], 0))
        cumulated = lambda values: 1 - numpy.cumprod(1 - numpy.maximum(values, 0), 0)
        return of_each, cumulated(of_each), by_variable, cumulated(by_variable)

    def t2(self, scores):
        return sum(t**2 / (squares(own) / N) for t, own in zip(scores, self.t))

    def distance(self, block, of_rows, is_member):
        """Over that of all, and its probability."""
        lost = A if block.name == "X" else 0
        columns = block.left[0].shape[1]
        free = (~numpy.isnan(of_rows.left[A])).sum(1) - lost
        r = N / (N - 1 - A) if is_member else 1.0
        ratio = numpy.where(free > 0, squares(of_rows.left[A], 1) / numpy.maximum(free, 1), numpy.nan) * r / self.s2(block, A)
        v2 = max(self.df(block, A) / (columns - lost), 1)
        v1 = max(min(columns, 100, v2) + max(columns - v2, 0) ** 0.5 - lost, 1)
        return ratio**0.5, stats.f.sf(ratio, v1 / r, v2)

    def leverage(self, scores):
        q, _ = numpy.linalg.qr(numpy.array(scores).T)
        return 1 / N + squares(q, 1)

    def w_star(self):
        return numpy.array(self.w).T @ numpy.linalg.inv(numpy.array(self.p) @ numpy.array(self.w).T)

    def limit(self, scores, leverage, side, response):
        half = stats.t.ppf(0.975, N - 1 - A) * (self.s2v(self.y, A)[response] * (1 + leverage)) ** 0.5
        scaled = numpy.array(scores).T @ numpy.array(self.c)[:, response]
        limits = numpy.column_stack([scaled + side * half] * M)
        return self.y.units(limits, "")[:, response]


def principal(e, usable, start, cap):
    """NIPALS, with what is not usable made up for up to the cap."""
    t, iterations = start, 0
    while True:
        iterations += 1
        p = (e * usable).T @ t * numpy.minimum(squares(t) / (usable.T @ t**2), cap)
        p /= squares(p) ** 0.5
        before, t = t, (e * usable) @ p * numpy.minimum(1 / (usable @ p**2), cap)
        if squares(t - before) / squares(t) <= 1e-10:
            return t, p, iterations


def pls(e, f, u):
    t, iterations = numpy.zeros(len(e)), 0
    while True:
        iterations += 1
        w = e.T @ u
        w /= squares(w) ** 0.5
        before, t = (t, u), e @ w
        c = f.T @ t / squares(t)
        u = f @ c / squares(c)
        if squares(u - before[1]) / squares(u) + squares(t - before[0]) / squares(t) <= 2e-10:
            return t, u, w, c, iterations


def write(owner, name, labels, values):
    values = numpy.nan_to_num(numpy.array(values, float), nan=-99)
    lines.append(f"{owner},{name},{labels}," + ",".join(f"{value:.7g}" for value in values))


def write_set(owner, labels, rows, vectors):
    """Those of the observations at these positions."""
    for name, values in {"Num": 10 * rows, "Time": rows, **vectors}.items():
        write(owner, name, "a,e" if name.startswith("Obs") else labels, values)


def write_block(owner, model, block, ps, labels):
    o, v, obs, obs_ps = block.name, "V" + block.name, OBS_DS, OBS_PSDS
    stages, components = range(-1, A + 1), range(1, A + 1)
    of_stages, of_components = "Initial,Comp[2]", "Comp[1],Comp[2]"
    ss, s2 = lambda stage: squares(block.at(stage)), lambda stage: model.s2(block, stage)
    ssv, s2v = lambda stage: squares(block.at(stage), 0), lambda stage: model.s2v(block, stage)
    share = model.explained
    of_ps = 1 if o == "X" else A  # those of responses are there at the last component alone
    rows = {
        "DF" + o: (of_stages, [model.df(block, s) for s in stages]),
        "S2" + o: (of_stages, [s2(s) for s in stages]),
        "SS" + o: (of_stages, [ss(s) for s in stages]),
        f"R2{o}": (of_components, [share(ss, c - 1, c) for c in components]),
        f"R2{o}(cum)": (of_components, [share(ss, 0, c) for c in components]),
        f"R2{o}adj": (of_components, [share(s2, c - 1, c) for c in components]),
        f"R2{o}adj(cum)": (of_components, [share(s2, 0, c) for c in components]),
        f"R2{o}[2]": ("Comp[2],Comp[2]", [share(ss, 1, 2)]),
        f"S2{o}0:1[0]": ("Center,Comp[1]", [s2(0), s2(1)]),
        f"DMod{o}[2]": (obs, model.distance(block, block, True)[0]),
        f"PMod{o}[2]": (obs, model.distance(block, block, True)[1]),
        f"DMod{o}PS[2]": (obs_ps, model.distance(block, ps, False)[0]),
        f"PMod{o}PS[2]": (obs_ps, model.distance(block, ps, False)[1]),
        f"S2O{o}[2]": (obs, squares(block.left[2], 1) / max(model.df(block, 2) / N, 1)),
        f"SSO{o}[1]": (obs, squares(block.left[1], 1)),
        f"Avg{o}[-1]": (labels, block.centre),
        f"Avg{o}[0]": (labels, block.centre * 0),
        f"Max{o}[-1]": (labels, block.taken.max(0)),
        f"Min{o}[-1]": (labels, block.taken.min(0)),
        f"R2{v}[2]": (labels, share(ssv, 1, 2)),
        f"R2{v}adj[2]": (labels, share(s2v, 1, 2)),
        f"R2{v}(cum)[2]": (labels, share(ssv, 0, 2)),
        f"R2{v}(cum)adj[2]": (labels, share(s2v, 0, 2)),
        f"S2{v}[2]": (labels, s2v(2)),
        f"SS{v}[-1]": (labels, ssv(-1)),
        f"SS{v}-1:1[2]": ("Initial,Comp[1]", [ssv(s)[1] for s in (-1, 0, 1)]),
        f"ws{o}": (labels, block.weight),
        f"{o}2[-1]": (obs, block.value("")[:, 1]),
        f"{o}Sc2[-1]": (obs, block.value("Sc")[:, 1]),
        f"{o}Res2[1]": (obs, block.residual(1, "")[:, 1]),
        f"{o}ResSc2[0]": (obs, block.residual(0, "Sc")[:, 1]),
        f"{o}ResSt2[1]": (obs, block.left[1][:, 1] / s2v(1)[1] ** 0.5),
        f"{o}ResPS2[{of_ps}]": (obs_ps, ps.residual(of_ps, "")[:, 1]),
        f"{o}ResPSSt1[2]": (obs_ps, ps.left[2][:, 0] / s2v(2)[0] ** 0.5),
        f"Obs{o}Tr3[-1]": (labels, block.value("Tr")[2]),
        f"Obs{o}PSSc3[-1]": (labels, ps.value("Sc")[2]),
        f"Obs{o}ResTr3[2]": (labels, block.residual(2, "Tr")[2]),
        f"Obs{o}ResPSTr3[2]": (labels, ps.residual(2, "Tr")[2]),
    }
    for name, (of_name, values) in rows.items():
        write(owner, name, of_name, values)
    first = 0 if o == "X" else K
    for units in ("", "Tr", "Sc"):
        for k in range(1, block.left[0].shape[1] + 1):
            for stage in (0, 2):
                suffix = f"{units}{first + k}[{stage}]"
                write(owner, "VarRes" + suffix, obs, block.residual(stage, units)[:, k - 1])
                write(owner, "VarPred" + suffix, obs, block.predicted(stage, units)[:, k - 1])
                if stage >= of_ps or o == "X":
                    write(owner, "VarResPS" + suffix, obs_ps, ps.residual(stage, units)[:, k - 1])
                write(owner, "VarPredPS" + suffix, obs_ps, ps.predicted(stage, units)[:, k - 1])


def write_model(owner, model):
    obs, obs_ps, x, y, components = OBS_DS, OBS_PSDS, "a,c", "d,e", "Comp[1],Comp[2]"
    write_set(owner, obs, rows_of_models + 1, {})
    write_block(owner, model, model.x, model.x_ps, x)
    q2, q2_cum, q2v, q2v_cum = model.q2()
    ss = lambda stage: squares(model.x.left[stage])
    rows = {
        "Eig": (components, [K * model.explained(ss, c - 1, c) for c in (1, 2)]),
        "Iter": (components, model.iterations),
        "Q2": (components, q2),
        "Q2(cum)": (components, q2_cum),
        "Q2V[2]": (y if model.is_pls else x, q2v[1]),
        "Q2V(cum)[2]": (y if model.is_pls else x, q2v_cum[1]),
        "SDt": (components, [(squares(t) / N) ** 0.5 for t in model.t]),
        "OLevX[2]": (obs, model.leverage(model.t)),
        "t[2]": (obs, model.t[1]),
        "tPS[2]": (obs_ps, model.t_ps[1]),
        "t1:2[5]": (components, [t[4] for t in model.t]),
        "p[2]": (x, model.p[1]),
        "p1:2[3]": (components, [p[2] for p in model.p]),
        "Tsquare[2]": (obs, model.t2(model.t)),
        "Tsquare1:2[0]": (obs, model.t2(model.t)),
        "TsquarePS[2]": (obs_ps, model.t2(model.t_ps)),
        "MPowX[2]": (x, numpy.maximum(0, 1 - (model.s2v(model.x, 2) / model.s2v(model.x, 0)) ** 0.5)),
    }
    if model.is_pls:
        write_block(owner, model, model.y, model.y_ps, y)
        w, c, w_star = numpy.array(model.w), numpy.array(model.c), model.w_star()
        b = w_star @ c
        coefficients = b * model.x.weight[:, None] / model.y.weight
        gains = numpy.array([squares(model.y.left[s]) - squares(model.y.left[s + 1]) for s in (0, 1)])
        h, h_ps = model.leverage(model.t), 1 / N + model.t2(model.t_ps) / N
        rows |= {
            "SDu": (components, [(squares(u) / N) ** 0.5 for u in model.u]),
            "OLevY[2]": (obs, model.leverage(model.u)),
            "u[1]": (obs, model.u[0]),
            "w[2]": (x, w[1]),
            "w*[2]": (x, w_star[:, 1]),
            "c[1]": (y, c[0]),
            "w*c[2]": ("a,e", [*w_star[:, 1], *c[1]]),
            "wc[2]": ("a,e", [*w[1], *c[1]]),
            "VIP[2]": (x, (K * (gains @ w**2) / gains.sum()) ** 0.5),
            "YTr2[-1]": (obs, model.y.value("Tr")[:, 1]),
            "YPS2[-1]": (obs_ps, model.y_ps.value("")[:, 1]),
        }
        for m in (1, 2):
            centre, of_y = model.y.centre[m - 1], coefficients[:, m - 1]
            rows |= {
                f"Coeff{m}[2]": ("Const,c", [centre - of_y @ model.x.centre, *of_y]),
                f"CoeffC{m}[2]": (x, of_y),
                f"CoeffCS{m}[2]": (x, b[:, m - 1]),
                f"CoeffMR{m}[2]": ("Const,c", [centre, *(b[:, m - 1] / model.y.weight[m - 1])]),
                f"SerrL{m}[2]": (obs, model.limit(model.t, h, -1, m - 1)),
                f"SerrU{m}[2]": (obs, model.limit(model.t, h, 1, m - 1)),
                f"SerrLPS{m}[2]": (obs_ps, model.limit(model.t_ps, h_ps, -1, m - 1)),
                f"SerrUPS{m}[2]": (obs_ps, model.limit(model.t_ps, h_ps, 1, m - 1)),
            }
    for name, (labels, values) in rows.items():
        write(owner, name, labels, values)


pc, pls_model = Model(False), Model(True)
taken = numpy.where([False, True, False, False, True], numpy.log10(numpy.abs(table)), table)
kept, kept_ps = rows_of_models, rows_of_set
write_set("DS", OBS_DS, numpy.arange(1, N_DS + 1), {"VarDS2": table[:N_DS, 1], "ObsDS5": table[4]})
write_set("WS", OBS_DS, kept + 1, {"Var2": table[kept, 1], "VarTr2": taken[kept, 1], "Obs5": table[5], "ObsTr5": taken[5]})
write_set("PS", OBS_PSDS, kept_ps - N_DS + 1, {"VarPS2": table[kept_ps, 1], "VarPSTr5": taken[kept_ps, 4], "ObsPSTr5": taken[-1]})
write_model("PC", pc)
write_model("PLS", pls_model)
# What counts X variables and responses has none of these where there are no responses.
of_pc = {line.split(",")[1] for line in lines if line.startswith("PC,")}
for line in list(lines):
    name = line.split(",")[1]
    if line.startswith("PLS,Var") and name not in of_pc:
        lines.append(f"PC,{name},8021")
pathlib.Path(__file__).with_name("vectors.csv").write_text("\n".join(lines) + "\n", encoding="utf-8")

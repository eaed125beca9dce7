# Writes models by partial least squares as R's package pls (oscorespls) fits them, for the tests.
#
#   Rscript make_pls_reference.R
#
# X and Y are centred and scaled to unit variance. Lines of a name and numbers: R2, the cumulative
# shares of X and Y; by component w, p, c, the weights and loadings of X and the loadings of Y, and t,
# the scores; by response B, the coefficients of all components.
suppressPackageStartupMessages(library(pls))

write_model <- function(x, y, components, file) {
  x <- as.matrix(x)
  y <- as.matrix(y)
  fit <- plsr(scale(y) ~ scale(x), ncomp = components, method = "oscorespls", tol = 1e-13,
              maxit = 10000)
  out <- file(file, "w")
  line <- function(name, values) {
    cat(name, ",", paste(formatC(as.numeric(values), digits = 8, format = "g", width = 1),
                         collapse = ","), "\n", sep = "", file = out)
  }
  left <- sapply(seq_len(components), function(a) sum(fit$residuals[, , a]^2))
  for (a in seq_len(components)) {
    line("R2", c(sum(fit$Xvar[1:a]) / fit$Xtotvar, 1 - left[a] / sum(scale(y)^2)))
    line("w", fit$loading.weights[, a])
    line("p", fit$loadings[, a])
    line("c", fit$Yloadings[, a])
    line("t", fit$scores[, a])
  }
  for (m in seq_len(ncol(y))) line("B", fit$coefficients[, m, components])
  close(out)
}

here <- dirname(sub("^--file=", "", grep("^--file=", commandArgs(), value = TRUE)))
sample <- function(name) read.csv(file.path(here, "../../samples", paste0(name, ".csv")))[, -(1:2)]
fit <- function(name, data, responses, components) {
  write_model(data[, setdiff(names(data), responses)], data[, responses], components,
              file.path(here, paste0(name, ".csv")))
}
fit("pls_mtcars", sample("mtcars"), "mpg", 3)
fit("pls_mtcars_2", sample("mtcars"), c("mpg", "qsec"), 3)
fit("pls_airquality", na.omit(sample("airquality")), "Temp", 3)
fit("pls_spectra_1", sample("spectra"), "y1", 2)
fit("pls_spectra_2", sample("spectra"), c("y1", "y2"), 2)
iris <- sample("iris")
species <- rep(1:3, each = 50)
write_model(iris, outer(species, 1:3, "=="), 3, file.path(here, "pls_iris.csv"))

# Writes models by partial least squares as R's package pls (oscorespls) fits them, for the tests.
#
#   Rscript make_pls_reference.R             those of the samples, beside this file
#   Rscript make_pls_reference.R DATA FILE   that of a data set of the package, and its data
#
# X and Y are centred and scaled to unit variance. Lines of a name and numbers: R2, the cumulative
# shares of X and Y; by component w, p, c, the weights and loadings of X and the loadings of Y, and t,
# the scores; by response B, the coefficients of all components. With data: X and Y by row.
suppressPackageStartupMessages(library(pls))

write_model <- function(x, y, components, file, with_data = FALSE) {
  x <- as.matrix(x)
  y <- as.matrix(y)
  fit <- plsr(scale(y) ~ scale(x), ncomp = components, method = "oscorespls", tol = 1e-13,
              maxit = 10000)
  out <- file(file, "w")
  line <- function(name, values) {
    cat(name, ",", paste(formatC(as.numeric(values), digits = 8, format = "g", width = 1),
                         collapse = ","), "\n", sep = "", file = out)
  }
  if (with_data) for (i in seq_len(nrow(x))) { line("X", x[i, ]); line("Y", y[i, ]) }
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

arguments <- commandArgs(trailingOnly = TRUE)
if (length(arguments) == 2) {
  data(list = arguments[1])
  data <- get(arguments[1])
  blocks <- list(gasoline = c("NIR", "octane"), yarn = c("NIR", "density"),
                 oliveoil = c("chemical", "sensory"))[[arguments[1]]]
  write_model(unclass(data[[blocks[1]]]), unclass(data[[blocks[2]]]), 3, arguments[2], TRUE)
} else {
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
}

# compare_packages.R FILE ROWS COLUMNS THRESHOLD GROUPS: seconds for five components by pcaMethods'
# nipals, with Q2 by imputation in GROUPS segments when that is above 0, and the share of the sum of
# squares that is left.
suppressPackageStartupMessages(library(pcaMethods))
arguments <- commandArgs(trailingOnly = TRUE)
rows <- as.integer(arguments[2])
columns <- as.integer(arguments[3])
threshold <- as.numeric(arguments[4])
groups <- as.integer(arguments[5])

values <- readBin(arguments[1], "numeric", rows * columns, size = 4)
values[is.nan(values)] <- NA
table <- matrix(values, rows, columns, byrow = TRUE)
seconds <- system.time({
  fit <- pca(table, "nipals", nPcs = 5, center = FALSE, scale = "none", threshold = threshold,
             maxSteps = 10000)
  if (groups > 0) {
    q2 <- suppressWarnings(Q2(fit, table, fold = groups, type = "impute", verbose = FALSE,
                              threshold = threshold, maxSteps = 10000))
  }
})[["elapsed"]]
cat(seconds, 1 - fit@R2cum[5], "\n")

# compare_pls.R FILE ROWS COLUMNS RESPONSES METHOD: seconds for five components by a method of the package
# pls; the responses are the last columns.
suppressPackageStartupMessages(library(pls))
arguments <- commandArgs(trailingOnly = TRUE)
rows <- as.integer(arguments[2])
columns <- as.integer(arguments[3])
responses <- as.integer(arguments[4])

table <- matrix(readBin(arguments[1], "numeric", rows * (columns + responses), size = 4), rows,
                columns + responses, byrow = TRUE)
x <- table[, seq_len(columns)]
y <- table[, columns + seq_len(responses), drop = FALSE]
fit <- if (arguments[5] == "kernelpls") kernelpls.fit else oscorespls.fit
cat(min(replicate(3, system.time(fit(x, y, 5))[["elapsed"]])), "\n")

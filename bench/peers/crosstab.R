# Counts the rows of a CSV file in a table of four columns with data.table, or sums its numbers as well.
# It has no HTML, so the table is written as CSV. Prints how long that took, without the start of the interpreter.
#
# usage: crosstab.R counts|sums DATA.csv FILE

suppressPackageStartupMessages(library(data.table))
words <- commandArgs(trailingOnly = TRUE)

start <- proc.time()[["elapsed"]]
data <- fread(words[2], showProgress = FALSE)
functions <- if (words[1] == "counts") length else list(length, sum)
fwrite(dcast(data, a + b ~ c + d, fun.aggregate = functions, value.var = "x"), words[3])
cat("without start ms=", (proc.time()[["elapsed"]] - start) * 1000, "\n", sep = "")

#!/usr/bin/env Rscript
# Monthly rain of a few stations: reads a table, fills gaps, tells trends and draws a picture.
#
#   Rscript rainfall.R [--plot FILE.png] [TABLE.csv]

suppressPackageStartupMessages(library(stats))

MONTHS <- c("Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec")
DRY_BELOW <- 12.5   # millimetres a month
SEED <- 20L

#' Makes up a table of rain, so that the script has something to show.
#'
#' @param stations names of the stations
#' @param years a range such as 2010:2024
#' @return a data frame with one row a station and month
sample_rain <- function(stations, years = 2010:2024) {
  set.seed(SEED)
  rows <- expand.grid(station = stations, year = years, month = seq_along(MONTHS), stringsAsFactors = TRUE)
  season <- 55 + 30 * cos(2 * pi * (rows$month - 1) / 12)
  rows$mm <- round(rgamma(nrow(rows), shape = 2, scale = season / 2), 1)
  rows$mm[sample(nrow(rows), nrow(rows) %/% 40)] <- NA
  rows
}

read_rain <- function(path) {
  if (!file.exists(path)) stop(sprintf('No such table: "%s"', path), call. = FALSE)
  table <- read.csv(path, comment.char = "#", na.strings = c("", "NA", "-"))
  wanted <- c("station", "year", "month", "mm")
  missing_ones <- setdiff(wanted, names(table))
  if (length(missing_ones) > 0) {
    stop(sprintf("%s lacks the column%s %s", path, if (length(missing_ones) == 1) "" else "s",
                 paste(sQuote(missing_ones, FALSE), collapse = ", ")))
  }
  table[, wanted]
}

# A gap gets the mean of its station and month; what remains is dropped.
fill_gaps <- function(rain) {
  means <- ave(rain$mm, rain$station, rain$month, FUN = \(x) mean(x, na.rm = TRUE))
  gaps <- is.na(rain$mm)
  rain$mm[gaps] <- means[gaps]
  attr(rain, "filled") <- sum(gaps)
  na.omit(rain)
}

trend_of <- function(yearly) {
  model <- lm(mm ~ year, data = yearly)
  slope <- coef(model)[["year"]]
  list(slope = slope, p = summary(model)$coefficients["year", 4], r2 = summary(model)$r.squared)
}

describe <- function(rain) {
  yearly <- aggregate(mm ~ station + year, data = rain, FUN = sum)
  for (name in levels(factor(yearly$station))) {
    part <- subset(yearly, station == name)
    trend <- tryCatch(trend_of(part), error = function(e) {
      message('No trend for ', name, ': ', conditionMessage(e))
      NULL
    })
    if (is.null(trend)) next
    verdict <- if (trend$p < 0.05) ifelse(trend$slope > 0, "wetter", "drier") else "no change"
    cat(sprintf("%-10s %7.1f mm a year, %+5.2f mm each year (p = %.3f): %s\n",
                name, mean(part$mm), trend$slope, trend$p, verdict))
  }
  dry <- with(rain, tapply(mm < DRY_BELOW, month, mean)) |> sort(decreasing = TRUE) |> head(3)
  cat("Driest months:", paste0(MONTHS[as.integer(names(dry))], collapse = ", "), "\n")
  invisible(yearly)
}

draw <- function(yearly, file) {
  png(file, width = 900, height = 500)
  on.exit(dev.off())
  colours <- hcl.colors(nlevels(yearly$station))
  plot(mm ~ year, data = yearly, type = "n", xlab = "Year", ylab = "Rain in mm", main = 'What fell')
  for (i in seq_along(levels(yearly$station))) {
    part <- yearly[as.integer(yearly$station) == i, ]
    lines(part$year, part$mm, col = colours[i], lwd = 2)
  }
  legend("topright", legend = levels(yearly$station), col = colours, lwd = 2, bty = "n")
}

main <- function(arguments = commandArgs(trailingOnly = TRUE)) {
  at <- match("--plot", arguments)
  picture <- if (is.na(at)) NULL else arguments[at + 1L]
  rest <- arguments[!(seq_along(arguments) %in% c(at, at + 1L))]
  rain <- if (length(rest) > 0) read_rain(rest[1]) else sample_rain(c("Harbour", "Hill", "Moor"))
  rain <- fill_gaps(rain)
  cat(attr(rain, "filled"), "gaps filled\n")
  yearly <- describe(rain)
  if (!is.null(picture)) draw(yearly, picture)
  repeat {
    answer <- if (interactive()) readline("Once more [y/n]? ") else "n"
    if (grepl("^[ny]$", answer)) break
  }
}

pattern <- r"(^\d{4}-\d{2}$)"   # of the names of tables
`%near%` <- function(x, y) abs(x - y) < 1e-8

if (!interactive()) main()

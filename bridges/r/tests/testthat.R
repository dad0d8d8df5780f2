library(testthat)
library(hierfit)

test_check("hierfit")

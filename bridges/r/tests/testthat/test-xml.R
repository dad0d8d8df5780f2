test_that("numbers read back as they were", {
  x <- c(0.1, 1 / 3, 1e-300, 123456789.123456789, 2^53 + 2, -0.5, 1e22)
  expect_identical(as.numeric(hierfit:::number_text(x)), x)
  expect_identical(hierfit:::number_text(c(NA, NaN, Inf)), c("", "", ""))
  expect_identical(hierfit:::number_text(2), "2")
})

test_that("texts of arrays are quoted where they must be", {
  expect_identical(hierfit:::token_text(c("a", "b c", "d\"e", "", NA, "__MISSING__")),
    c("a", "\"b c\"", "\"d\\\"e\"", "\"\"", "__MISSING__", "\"__MISSING__\""))
  expect_identical(hierfit:::token_text("a\x01b"), "\"a b\"")
  expect_error(hierfit:::token_text("a b\\"), "backslash")
})

test_that("markup and control characters are escaped", {
  expect_identical(hierfit:::xml_escape("a<b&\"c\">\r\n\x01"), "a&lt;b&amp;&quot;c&quot;&gt;&#13;&#10; ")
  expect_identical(hierfit:::xml_escape("\ufffe\u00e9\uffff"), " \u00e9 ")
})

test_that("levels that are numbers are told from those that look like them", {
  expect_true(hierfit:::levels_are_numbers(c("0", "0.2", "-1")))
  expect_false(hierfit:::levels_are_numbers(c("01", "1")))
  expect_false(hierfit:::levels_are_numbers(c("1e400", "1")))
  expect_identical(hierfit:::number_format(c(0, 0.25, 10)), "F5.2")
})

test_that("a program that is missing or fails is told with what to do", {
  old <- options(hierfit.program = "/nowhere/hierfit")
  on.exit(options(old))
  expect_error(hierfit:::find_program(), "hierfit.program")
  expect_error(hierfit:::run_program("false", character()), "status 1")
})

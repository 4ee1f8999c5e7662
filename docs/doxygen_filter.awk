# Turns the headers' plain `//` comments into Doxygen comments, so the reference is written in the
# headers' own comments without marking them up.
#
# - The comment block that opens a header describes the file: it is marked `\file`.
# - A `//` comment line at the start of a line becomes `///`; `//@{` and `//@}` open and close a
#   member group, whose one comment serves every overload in it.
# - Indented example lines inside a comment get four spaces, so they print as code.
# - Trailing `//` comments after code, `// namespace x` closers and lint markers are left alone.
# The number of lines is unchanged, so Doxygen's warnings point at the real header lines.
BEGIN { opening = 1 }
{
  line = $0
  if (line ~ /^[[:space:]]*\/\/@[{}]/) {
    sub(/\/\/@/, "///@", line)
    print line
    next
  }
  if (line ~ /^[[:space:]]*\/\/[[:space:]]*NOLINT/) {
    print line
    next
  }
  if (line ~ /^[[:space:]]*\/\/([^\/]|$)/) {
    match(line, /^[[:space:]]*\/\//)
    indent = substr(line, 1, RLENGTH - 2)
    text = substr(line, RLENGTH + 1)
    if (text ~ /^   /) text = "    " text
    if (opening) {
      if (NR == 1) {
        print "/** \\file */ ///" text
        next
      }
    }
    print indent "///" text
    next
  }
  opening = 0
  print line
}

# Turns the headers' plain `//` comments into Doxygen comments, so the reference is written in the
# headers' own comments without marking them up.
#
# - The comment block that opens a header describes the file: it is marked `\file`.
# - A block of `//` lines directly above a declaration documents it: its lines become `///`. A
#   block followed by a blank line is a remark about the code around it and stays as it is.
# - `//@{` and `//@}` open and close a member group, whose one comment serves every overload in
#   it.
# - Indented example lines inside a comment get four more spaces, so they print as code.
# - Trailing `//` comments after code, `// namespace x` closers and lint markers are left alone.
# The number of lines is unchanged, so Doxygen's warnings point at the real header lines.
function flush(as_doc,    i, line, text) {
  for (i = 1; i <= held; i++) {
    line = block[i]
    if (!as_doc) {
      print line
      continue
    }
    match(line, /^[[:space:]]*\/\//)
    text = substr(line, RLENGTH + 1)
    if (text ~ /^   /) text = "    " text
    if (opening && i == 1) text = text " \\file"
    print substr(line, 1, RLENGTH - 2) "///" text
  }
  held = 0
  opening = 0
}
BEGIN { opening = 1; held = 0 }
/^[[:space:]]*\/\/[[:space:]]*NOLINT/ { flush(1); print; next }
/^[[:space:]]*\/\/@[{}]/ { flush(1); line = $0; sub(/\/\/@/, "///@", line); print line; next }
/^[[:space:]]*\/\/([^\/]|$)/ { block[++held] = $0; next }
/^[[:space:]]*$/ { flush(opening); print; next }
{ flush(1); print }
END { flush(opening) }

#!/usr/bin/awk -f
# Turns the comments of a header into those that Doxygen reads: one before a declaration or beside it belongs to it, and
# one before an empty line, outside of classes, to the file.

function flush(marked, i) {
  for (i = 1; i <= count; i++) {
    if (marked) sub(/\/\//, "///", comment[i])
    if (marked && comment[i] ~ /\/\/   [^ ].*   /) {  # a row of a table
      sub(/\/\/   /, "// - ", comment[i])
      gsub(/   +/, ": ", comment[i])
    }
    print comment[i]
  }
  count = 0
}

/^ *\/\/( |$)/ {
  comment[++count] = $0
  next
}
/^ *$/ {
  if (count > 0 && comment[1] ~ /^\/\//) {
    print "/// @file"
    flush(1)
  } else {
    flush(0)
  }
  print
  next
}
{
  flush(1)
  if (match($0, /[;,{] +\/\/ /)) $0 = substr($0, 1, RSTART) "  ///< " substr($0, RSTART + RLENGTH)
  print
}
END { flush(0) }

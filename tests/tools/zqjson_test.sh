#!/usr/bin/env bash
# Usage: zqjson_test.sh ZQJSON EXAMPLES_DIR VERSION
# Runs zqjson on inputs and checks exit status, standard output and standard error exactly: a stream
# that is expected to say something must end in exactly one line end. Rows that write a file also
# check its bytes and that nothing else was left beside it.
set -u
tool=$1 examples=$2 version=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0 passed=0

# The bytes a stream should hold: nothing, or the text and one line end.
stream() {
  [[ -z $1 ]] || printf '%s\n' "$1"
}

# check NAME STDIN EXPECTED_STATUS EXPECTED_STDOUT EXPECTED_STDERR ARGS...
check() {
  local name=$1 input=$2 status=$3 out=$4 err=$5
  shift 5
  printf '%s' "$input" | "$tool" "$@" >"$scratch/out" 2>"$scratch/err"
  local actual=$?
  if [[ $actual != "$status" ]] || ! cmp -s <(stream "$out") "$scratch/out" || ! cmp -s <(stream "$err") "$scratch/err"; then
    echo "FAIL $name: status $actual (expected $status)"
    echo "  stdout: $(cat -A "$scratch/out")"
    echo "  stderr: $(cat -A "$scratch/err")"
    failures=$((failures + 1))
  else
    passed=$((passed + 1))
  fi
}

# check_file NAME PATH EXPECTED: the file holds the expected text and one line end, and no temporary
# file is left anywhere in the scratch directory.
check_file() {
  local name=$1 path=$2 expected=$3
  local leftovers
  leftovers=$(find "$scratch" -name '.*.??????' | wc -l)
  if ! cmp -s <(stream "$expected") "$path" || [[ $leftovers != 0 ]]; then
    echo "FAIL $name: $path holds: $(cat -A "$path" 2>&1); $leftovers temporary files left"
    failures=$((failures + 1))
  else
    passed=$((passed + 1))
  fi
}

# The usage text is pinned: its wording is part of the command.
usage=$(cat "$(dirname "$0")/usage.txt")
matrix_large='{"zqdata":[1,4,2,5,3,6],"zqsize":[2,3],"zqtype":"double"}'
matrix_small='[[1,2,3],[4,5,6]]'
object='{"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{"p":1}]}'

# Size and class only.
check DescribeStdin '1.5' 0 '1x1 double' '' --describe
check DescribeDashIsStdin 'true' 0 '1x1 logical' '' --describe -
check DescribeText '' 0 '1x5 char' '' --describe "$examples/text.json"
check DescribeAfterInput '' 0 '1x1 double' '' "$examples/number.json" --describe
check DescribeIgnoresNotation "$matrix_small" 0 '2x3 double' '' --format small --pretty --describe

# One level inside: fields and properties of a 1-by-1 struct or object, the first five cell entries.
check DescribeStructFields '' 0 '1x1 struct
  born: 1x1 double
  name: 1x3 char
  scores: 1x3 double' '' --describe "$examples/struct.json"
check DescribeStructRowOnlySize '{"zqtype":"struct","zqsize":[1,2],"zqdata":{"a":[1,2]}}' 0 '1x2 struct' '' --describe
check DescribeStructWithoutFields '{}' 0 '1x1 struct' '' --describe
check DescribeObjectProperties '{"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{"p":1,"q":"xy"}]}' 0 '1x1 value object pkg.Cls
  p: 1x1 double
  q: 1x2 char' '' --describe
check DescribeObjectRowOnlySize '' 0 '1x2 value object shop.Item' '' --describe "$examples/value-object.json"
check DescribeCellEntries '' 0 '1x3 cell
  1: 1x1 double
  2: 1x4 char
  3: 2x1 logical' '' --describe "$examples/cell.json"
check DescribeCellFiveEntries '{"zqtype":"cell","zqsize":[5,1],"zqdata":[1,2,3,4,"e"]}' 0 '5x1 cell
  1: 1x1 double
  2: 1x1 double
  3: 1x1 double
  4: 1x1 double
  5: 1x1 char' '' --describe
check DescribeCellCountsTheRest '{"zqtype":"cell","zqsize":[1,7],"zqdata":[1,"ab",true,[1,2],{"a":1},2,3]}' 0 '1x7 cell
  1: 1x1 double
  2: 1x2 char
  3: 1x1 logical
  4: 2x1 double
  5: 1x1 struct
  ... 2 more' '' --describe
check DescribeEmptyCell '{"zqtype":"cell","zqsize":[0,0],"zqdata":[]}' 0 '0x0 cell' '' --describe

# White space around the value and a byte order mark are taken off; --strict keeps them.
check TrailingLineEnd $'1.5\n' 0 '1x1 double' '' --describe
check WhiteSpaceAround $' \t\r\n[1,2]\r\n\n ' 0 '{"zqdata":[1,2],"zqsize":[2,1],"zqtype":"double"}' ''
check ByteOrderMark $'\xEF\xBB\xBF{"a":1}\n' 0 '1x1 struct
  a: 1x1 double' '' --describe
check SpaceInsideStrings $' " a "\n' 0 '1x3 char' '' --describe
check StrictRefusesLineEnd $'1\n' 1 '' "$(printf 'zqjson: standard input: JSON ParserException (E0000): Parse incomplete (Line 1, Column 1)\n\t1\n\t ^')" --strict
check StrictRefusesByteOrderMark $'\xEF\xBB\xBF1' 1 '' "$(printf 'zqjson: standard input: JSON ParserException (E0008): Expected a string (opening quote) (Line 1, Column 0)\n\t\xEF\xBB\xBF1\n\t^')" --strict
check StrictRefusesLeadingBlank ' 1' 1 '' "$(printf 'zqjson: standard input: JSON ParserException (E0008): Expected a string (opening quote) (Line 1, Column 0)\n\t 1\n\t^')" --strict
check StrictTakesExactText '[1,2]' 0 '{"zqdata":[1,2],"zqsize":[2,1],"zqtype":"double"}' '' --strict
# Line and column count the skipped bytes, so they point into the file as it is.
check ErrorPlaceAfterBlankLines $'\n\n  [1,,2]\n' 1 '' "$(printf 'zqjson: standard input: JSON ParserException (E0008): Expected a string (opening quote) (Line 3, Column 5)\n\t  [1,,2]\n\t     ^')"
check ErrorPlaceAfterByteOrderMark $'\xEF\xBB\xBF[1,,2]' 1 '' "$(printf 'zqjson: standard input: JSON ParserException (E0008): Expected a string (opening quote) (Line 1, Column 6)\n\t\xEF\xBB\xBF[1,,2]\n\t      ^')"
check SecondValueIsIncomplete $' 1 2 \n' 1 '' "$(printf 'zqjson: standard input: JSON ParserException (E0000): Parse incomplete (Line 1, Column 2)\n\t 1 2 \n\t  ^')"

# Writing back: form, non-finite numbers, filter, layout.
check LargeIsDefault "$matrix_small" 0 "$matrix_large" ''
check FormatLarge "$matrix_small" 0 "$matrix_large" '' --format large
check FormatSmall "$matrix_large" 0 "$matrix_small" '' --format small
check FormatSmallWithEquals "$matrix_large" 0 "$matrix_small" '' --format=small
check LaterOptionWins "$matrix_small" 0 "$matrix_large" '' --format small --format large
check SmallScalar '{"zqdata":[5],"zqsize":[1,1],"zqtype":"double"}' 0 '5' '' --format small
check NanStringIsDefault '{"zqdata":"NaN"}' 0 '{"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"double"}' ''
check NanObject '{"zqdata":"NaN"}' 0 '{"zqdata":[{"zqdata":"NaN"}],"zqsize":[1,1],"zqtype":"double"}' '' --nan object
check NanStringNoEffectOnSmall '{"zqdata":"-Inf"}' 0 '{"zqdata":"-Inf"}' '' --nan string --format small
check FilterLeavesOtherKinds "$matrix_small" 0 "$matrix_large" '' --filter 2
check FilterAllowAllWritesObjects "$object" 0 '{"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.Cls"}' '' --filter 0 --format small
check TextStaysUtf8 '' 0 '{"zqdata":["héllo"],"zqsize":[1,5],"zqtype":"char"}' '' "$examples/text.json"
check StructSmall '' 0 '{"born":1815,"name":"Ada","scores":[[90,85,77]]}' '' --format small "$examples/struct.json"
check SparseStaysLarge '' 0 '{"zqdata":[[0,2],[1,1],[7,8]],"zqsize":[3,2],"zqsparse":true,"zqtype":"double"}' '' \
  --format small "$examples/sparse.json"
check PrettyLarge '[1,2]' 0 '{
  "zqdata": [
    1,
    2
  ],
  "zqsize": [
    2,
    1
  ],
  "zqtype": "double"
}' '' --pretty
check PrettySmall '{"b":"x","a":[[1,2]]}' 0 '{
  "a": [
    [
      1,
      2
    ]
  ],
  "b": "x"
}' '' --pretty --format small
# Output, line end included, goes straight back in.
check RoundTripThroughLarge "$("$tool" "$examples/matrix.json")"$'\n' 0 "$matrix_small" '' --format small -
check Version '' 0 "zqjson $version" '' --version
check VersionAmongOptions '' 0 "zqjson $version" '' --format small --version "$examples/null.json"

# Failures of the input, of the text, of the conversion and of the writing, each naming the file.
check SyntaxErrorShowsExcerptAndCaret '' 1 '' "$(printf 'zqjson: %s: JSON ParserException (E0008): Expected a string (opening quote) (Line 2, Column 2)\n\t2,,3]\n\t  ^' "$examples/syntax-error.json")" "$examples/syntax-error.json"
check ConversionErrorShowsClassAndText '' 1 '' "zqjson: $examples/null.json: foundation::zorbaldata::json::InvalidInputJSONValue: Input value is either foundation::json::Undefined or foundation::json::Null. The value cannot be converted to ZORBAL Data Array." "$examples/null.json"
check InvalidUtf8ShowsConverterClass "$(printf '"\xff"')" 1 '' 'zqjson: standard input: yx::i18n::CvtInvalidCharacter: Invalid UTF-8 byte sequence at byte offset 0'
check FilterAllowListedRefusesUnlisted "$object" 1 '' 'zqjson: standard input: foundation::zorbaldata::ObjectNotSupportedException: Objects of class "pkg.Cls" may not be written: the class is not on the list of allowed classes.' --filter 1
check FilterDenyAllRefuses "$object" 1 '' 'zqjson: standard input: foundation::zorbaldata::ObjectNotSupportedException: Objects of class "pkg.Cls" may not be written: the object type filter allows no class.' --filter=2
check DoubleDashEndsOptions '' 1 '' 'zqjson: cannot read --describe: No such file or directory' -- --describe

# Bad input: one line naming the path, status 1.
: >"$scratch/empty.json"
printf ' \r\n\t\n' >"$scratch/blank.json"
printf '\xEF\xBB\xBF\n' >"$scratch/mark.json"
check MissingFile '' 1 '' "zqjson: cannot read $scratch/none.json: No such file or directory" "$scratch/none.json"
check Directory '' 1 '' "zqjson: cannot read $scratch: Is a directory" "$scratch"
# Opens for anyone, root included, and fails at the first read.
check UnreadableFile '' 1 '' 'zqjson: cannot read /proc/self/mem: Input/output error' /proc/self/mem
check EmptyFile '' 1 '' "zqjson: $scratch/empty.json is empty" "$scratch/empty.json"
check EmptyFileStrict '' 1 '' "zqjson: $scratch/empty.json is empty" --strict "$scratch/empty.json"
check EmptyInput '' 1 '' 'zqjson: standard input is empty'
check OnlyWhiteSpace '' 1 '' "zqjson: $scratch/blank.json holds only white space" "$scratch/blank.json"
check OnlyByteOrderMark '' 1 '' "zqjson: $scratch/mark.json holds only white space" "$scratch/mark.json"
check OnlyWhiteSpaceStrict '' 1 '' "$(printf 'zqjson: %s: JSON ParserException (E0008): Expected a string (opening quote) (Line 1, Column 0)\n\t \r\n\t^' "$scratch/blank.json")" --strict "$scratch/blank.json"

# -o writes the file whole or not at all.
out=$scratch/written/result.json
mkdir -p "$scratch/written"
check OutputFile "$matrix_small" 0 '' '' -o "$out"
check_file OutputFileHoldsResult "$out" "$matrix_large"
check OutputReplacesFile "$matrix_large" 0 '' '' --format small --output="$out"
check_file OutputReplacedFileHoldsResult "$out" "$matrix_small"
chmod 640 "$out"
check OutputFailedConversion 'null' 1 '' 'zqjson: standard input: foundation::zorbaldata::json::InvalidInputJSONValue: Input value is either foundation::json::Undefined or foundation::json::Null. The value cannot be converted to ZORBAL Data Array.' -o "$out"
check_file OutputFailureLeavesFile "$out" "$matrix_small"
check OutputFailedWrite "$object" 1 '' 'zqjson: standard input: foundation::zorbaldata::ObjectNotSupportedException: Objects of class "pkg.Cls" may not be written: the object type filter allows no class.' --filter 2 --output "$out"
check_file OutputFailedWriteLeavesFile "$out" "$matrix_small"
check OutputKeepsPermissions '1' 0 '' '' -o "$out"
[[ $(stat -c %a "$out") == 640 ]] || { echo "FAIL OutputKeepsPermissions: mode $(stat -c %a "$out")"; failures=$((failures + 1)); }
check OutputOnDirectory '1' 1 '' "zqjson: cannot write $scratch/written: Is a directory" -o "$scratch/written"
check_file OutputOnDirectoryLeavesNothing "$out" '{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}'
check OutputInMissingDirectory '1' 1 '' "zqjson: cannot write $scratch/missing/result.json: No such file or directory" -o "$scratch/missing/result.json"
[[ ! -e $scratch/missing ]] || { echo "FAIL OutputInMissingDirectory: $scratch/missing was made"; failures=$((failures + 1)); }
check DescribeToFile "$object" 0 '' '' --describe -o "$out"
check_file DescribeToFileHoldsLines "$out" '1x1 value object pkg.Cls
  p: 1x1 double'
check OutputDashIsStdout '1' 0 '{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}' '' -o -

# Usage errors: the message, then the usage text.
usage_error() {
  printf 'zqjson: %s\n%s' "$1" "$usage"
}
check UnknownOption '' 2 '' "$(usage_error 'unknown option --bogus')" --bogus
check FlagTakesNoValue '' 2 '' "$(usage_error 'unknown option --pretty=yes')" --pretty=yes
check TwoInputs '' 2 '' "$(usage_error 'more than one input: a and b')" a b
check BadFormat '' 2 '' "$(usage_error '--format takes large or small, not "tiny"')" --format tiny
check BadNan '' 2 '' "$(usage_error '--nan takes string or object, not "nan"')" --nan nan
check BadFilter '' 2 '' "$(usage_error '--filter takes 0, 1 or 2, not "3"')" --filter 3
check BadFilterTwoDigits '' 2 '' "$(usage_error '--filter takes 0, 1 or 2, not "01"')" --filter 01
check EmptyValue '' 2 '' "$(usage_error '--format takes large or small, not ""')" --format=
check FormatNeedsValue '' 2 '' "$(usage_error '--format needs a value: large or small')" --format
check NanNeedsValue '' 2 '' "$(usage_error '--nan needs a value: string or object')" --describe --nan
check OutputNeedsValue '' 2 '' "$(usage_error '--output needs a value: a file name or -')" -o
check OutputNotEmpty '' 2 '' "$(usage_error '--output takes a file name or -, not ""')" --output=
check FilterNeedsValue '' 2 '' "$(usage_error '--filter needs a value: 0, 1 or 2')" "$examples/number.json" --filter
check Help '' 0 "$usage" '' -h
check HelpAmongOptions '' 0 "$usage" '' --format small --help

echo "$passed passed, $failures failed"
[[ $failures == 0 ]]

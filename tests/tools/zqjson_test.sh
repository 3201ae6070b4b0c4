#!/usr/bin/env bash
# Usage: zqjson_test.sh ZQJSON EXAMPLES_DIR
# Runs zqjson on inputs and checks exit status, standard output and standard error exactly: a stream
# that is expected to say something must end in exactly one line end.
set -u
tool=$1 examples=$2
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

usage=$("$tool" --help)
matrix_large='{"zqdata":[1,4,2,5,3,6],"zqsize":[2,3],"zqtype":"double"}'
matrix_small='[[1,2,3],[4,5,6]]'
object='{"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{"p":1}]}'

# Size and class only.
check DescribeStdin '1.5' 0 '1x1 double' '' --describe
check DescribeDashIsStdin 'true' 0 '1x1 logical' '' --describe -
check DescribeText '' 0 '1x5 char' '' --describe "$examples/text.json"
check DescribeAfterInput '' 0 '1x1 double' '' "$examples/number.json" --describe
check DescribeValueObject "$object" 0 '1x1 value object pkg.Cls' '' --describe
check DescribeIgnoresNotation "$matrix_small" 0 '2x3 double' '' --format small --pretty --describe

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
# The reader takes no line end after the value, so the output is fed back without it.
check RoundTripThroughLarge "$("$tool" "$examples/matrix.json")" 0 "$matrix_small" '' --format small -

# Failures of the input, of the text, of the conversion and of the writing.
check SyntaxErrorShowsExcerptAndCaret '' 1 '' "$(printf 'JSON ParserException (E0008): Expected a string (opening quote) (Line 2, Column 2)\n\t2,,3]\n\t  ^')" "$examples/syntax-error.json"
check TrailingBlankIsIncomplete '1 ' 1 '' "$(printf 'JSON ParserException (E0000): Parse incomplete (Line 1, Column 1)\n\t1 \n\t ^')"
check ConversionErrorShowsClassAndText '' 1 '' 'foundation::zorbaldata::json::InvalidInputJSONValue: Input value is either foundation::json::Undefined or foundation::json::Null. The value cannot be converted to ZORBAL Data Array.' "$examples/null.json"
check InvalidUtf8ShowsConverterClass "$(printf '"\xff"')" 1 '' 'yx::i18n::CvtInvalidCharacter: Invalid UTF-8 byte sequence at byte offset 0'
check MissingFile '' 1 '' "zqjson: cannot read $scratch/none.json: No such file or directory" "$scratch/none.json"
check FilterAllowListedRefusesUnlisted "$object" 1 '' 'foundation::zorbaldata::ObjectNotSupportedException: Objects of class "pkg.Cls" may not be written: the class is not on the list of allowed classes.' --filter 1
check FilterDenyAllRefuses "$object" 1 '' 'foundation::zorbaldata::ObjectNotSupportedException: Objects of class "pkg.Cls" may not be written: the object type filter allows no class.' --filter=2
check DoubleDashEndsOptions '' 1 '' 'zqjson: cannot read --describe: No such file or directory' -- --describe

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
check FilterNeedsValue '' 2 '' "$(usage_error '--filter needs a value: 0, 1 or 2')" "$examples/number.json" --filter
check Help '' 0 "$usage" '' -h
check HelpAmongOptions '' 0 "$usage" '' --format small --help

echo "$passed passed, $failures failed"
[[ $failures == 0 ]]

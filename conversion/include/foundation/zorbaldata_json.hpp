// Everything a caller of the conversion library needs, in one include. This header only includes.
#pragma once

// JSON values and their text.
#include <foundation/json/json_cast.hpp>
#include <foundation/json/nesting_limit.hpp>
#include <foundation/json/parse_result.hpp>
#include <foundation/json/parser.hpp>
#include <foundation/json/serialize.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/json/value.hpp>

// Arrays, and the conversions from JSON values and text to arrays and of one value to one element.
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>
#include <frontend/detail/json2num.hpp>

// From arrays to JSON.
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>

// Failures: of the JSON text, of the conversion layer, of the notation, of the text conversion.
#include <foundation/json/parser_exception.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <frontend/detail/parse_error.hpp>
#include <yx/i18n/cvt_exception.hpp>

// Diagnostics of the notation readers.
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

// Everything a caller of the conversion library needs, in one include. This header only includes.
#pragma once

// JSON values and their text.
#include <foundation/json/json_cast.hpp>
#include <foundation/json/parse_result.hpp>
#include <foundation/json/serialize.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/json/value.hpp>

// Arrays, and the conversion from JSON to arrays.
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

// Failures: of the conversion layer, of the notation, of the text conversion.
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <frontend/detail/parse_error.hpp>
#include <yx/i18n/cvt_exception.hpp>

// Diagnostics of the notation readers.
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

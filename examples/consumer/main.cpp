// Uses the installed package the way a host application would: one include, one target.
#include <foundation/zorbaldata_json.hpp>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace fj = foundation::json;
namespace zd = foundation::zorbaldata;
namespace zj = foundation::zorbaljson;

int main()
{
    fj::Value size(std::vector<fj::Value> { fj::Value(1.0), fj::Value(2.0) });
    fj::Value doc(std::map<std::string, fj::Value> {
        { "zqtype", fj::Value("int32") }, { "zqsize", size }, { "zqdata", size } });
    std::string const text = fj::serialize(doc);
    if (text != R"({"zqdata":[1,2],"zqsize":[1,2],"zqtype":"int32"})") {
        std::fprintf(stderr, "unexpected text: %s\n", text.c_str());
        return 1;
    }

    zd::ArrayFactory factory;
    zd::TypedArray<double> const scalar(zd::json::json_to_zorbaldata(fj::Value(1.5), factory));
    if (scalar.getDimensions() != std::vector<unsigned long>{1, 1} || scalar[0] != 1.5) {
        std::fprintf(stderr, "unexpected array\n");
        return 1;
    }

    // Exception classes are one type across the shared libraries, so a caller catches by class.
    try {
        throw zj::InvalidPropertyType("zqsize", fj::traits<fj::Array>::name);
    } catch (zj::ParseError const& e) {
        std::printf("%s\n%s\n", text.c_str(), e.what());
        return 0;
    }
}

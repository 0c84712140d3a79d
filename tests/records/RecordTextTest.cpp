// SPDX-License-Identifier: Apache-2.0
#include <bit>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <thrift/TToString.h>

#include <qel/api/camera/CameraAPIIf.h>

#include "tests/wire/WireBytes.h"

namespace qel::api {
namespace {

using base::ServiceResult;
using base::StringResult;
using camera::Matrix;
using camera::ProjectionState;
using camera::ProjectionType;
using camera::Vector;

Vector vector(std::vector<double> values) {
    Vector v;
    v.mData = std::move(values);
    return v;
}

TEST(RecordText, Vector) {
    EXPECT_EQ(textOf(Vector()), "Vector(mData=[])");
    EXPECT_EQ(textOf(vector({1, 2.5, -3})), "Vector(mData=[1, 2.5, -3])");
}

TEST(RecordText, Matrix) {
    Matrix m;
    EXPECT_EQ(textOf(m), "Matrix(mData=[])");
    m.mData = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    EXPECT_EQ(textOf(m), "Matrix(mData=[[1, 0, 0, 0], [0, 1, 0, 0], [0, 0, 1, 0], [0, 0, 0, 1]])");
    m.mData = {{}, {2}, {3, 4}};
    EXPECT_EQ(textOf(m), "Matrix(mData=[[], [2], [3, 4]])");
}

TEST(RecordText, ServiceResultShowsAMessageOnlyWhileItIsSet) {
    ServiceResult r;
    EXPECT_EQ(textOf(r), "ServiceResult(mError=0, mMessage=<null>)");
    r.mMessage = "left over";
    EXPECT_EQ(textOf(r), "ServiceResult(mError=0, mMessage=<null>)");
    r.__set_mError(-1);
    r.__set_mMessage("Call to viewSetEye() failed.");
    EXPECT_EQ(textOf(r), "ServiceResult(mError=-1, mMessage=Call to viewSetEye() failed.)");
}

TEST(RecordText, StatesPrintTheirBlobAsRawBytes) {
    camera::ViewState v;
    v.mEye = vector({1, 2, 3});
    v.mPrivate = std::string("a\0\xff(", 4);
    EXPECT_EQ(textOf(v), "ViewState(mViewTransformMatrix=Matrix(mData=[]), mViewMatrix=Matrix(mData=[]), "
                         "mEye=Vector(mData=[1, 2, 3]), mDirection=Vector(mData=[]), "
                         "mOrientation=Quaternion(mData=[]), mPrivate=" +
                             std::string("a\0\xff()", 5));
}

TEST(RecordText, AnEnumerationByNameOrElseByNumber) {
    const auto printed = [](int value) {
        ProjectionState p;
        p.mProjectionType = static_cast<ProjectionType::type>(value);
        return textOf(p);
    };
    const std::string before = "ProjectionState(mProjectionMatrix=Matrix(mData=[]), mProjectionType=";
    const std::string after =
        ", mFrustum=Frustum(mLeft=0, mRight=0, mBottom=0, mTop=0, mNearDist=0, mFarDist=0), mPrivate=)";
    EXPECT_EQ(printed(0), before + "PERSPECTIVE" + after);
    EXPECT_EQ(printed(1), before + "ORTHOGRAPHIC" + after);
    EXPECT_EQ(printed(7), before + "7" + after);
    EXPECT_EQ(printed(-2147483647 - 1), before + "-2147483648" + after);
}

TEST(RecordText, ResultsInDeclaredOrder) {
    StringResult s;
    s.mValue = "CameraAPI";
    EXPECT_EQ(textOf(s), "StringResult(mResult=ServiceResult(mError=0, mMessage=<null>), mValue=CameraAPI)");
    camera::VectorResult v;
    v.mValue = vector({0.5});
    EXPECT_EQ(textOf(v), "VectorResult(mValue=Vector(mData=[0.5]), mResult=ServiceResult(mError=0, mMessage=<null>))");
    camera::DoubleResult d;
    d.mValue = 1.5;
    EXPECT_EQ(textOf(d), "DoubleResult(mResult=ServiceResult(mError=0, mMessage=<null>), mValue=1.5)");
}

std::string number(double value) {
    const std::string s = textOf(vector({value}));
    return s.substr(14, s.size() - 16);
}

TEST(RecordText, DoublesWithSeventeenDigits) {
    EXPECT_EQ(number(1.0), "1");
    EXPECT_EQ(number(0.1), "0.10000000000000001");
    EXPECT_EQ(number(2.5), "2.5");
    EXPECT_EQ(number(-0.0), "-0");
    EXPECT_EQ(number(1e20), "1e+20");
    EXPECT_EQ(number(1e16), "10000000000000000");
    EXPECT_EQ(number(1e17), "1e+17");
    EXPECT_EQ(number(0.0001), "0.0001");
    EXPECT_EQ(number(0.00001), "1.0000000000000001e-05");
    EXPECT_EQ(number(1234567.0), "1234567");
    EXPECT_EQ(number(std::numeric_limits<double>::denorm_min()), "4.9406564584124654e-324");
    EXPECT_EQ(number(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
    EXPECT_EQ(number(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(number(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(number(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(number(std::copysign(std::numeric_limits<double>::quiet_NaN(), -1.0)), "-nan");
}

/// Every double prints as a stream in the classic locale prints it, through Thrift's own helper.
TEST(RecordText, DoublesAgreeWithTheStreams) {
    std::mt19937_64 random(17);
    std::vector<double> values;
    for (int i = 0; i < 20000; ++i) {
        values.push_back(std::bit_cast<double>(random()));
        values.push_back(static_cast<double>(static_cast<std::int64_t>(random() % 2000001) - 1000000) / 1000.0);
    }
    for (int exponent = -320; exponent <= 308; ++exponent) {
        values.push_back(std::pow(10.0, exponent));
        values.push_back(std::nextafter(std::pow(10.0, exponent), 0.0));
    }
    for (const double value : values) {
        ASSERT_EQ(number(value), ::apache::thrift::to_string(value));
    }
}

class Comma : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Puts the global locale back at the end of a test.
class GlobalLocale {
public:
    explicit GlobalLocale(const std::locale& locale) : mBefore(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(mBefore); }
    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

private:
    std::locale mBefore;
};

TEST(RecordText, DoesNotDependOnALocale) {
    const GlobalLocale global(std::locale(std::locale::classic(), new Comma));
    std::ostringstream out;
    out << 1234.5;
    ASSERT_EQ(out.str(), "1.234,5") << "the locale of this test works";
    ServiceResult r;
    r.mError = 1234567;
    out.str("");
    out << r << vector({1234567.5});
    EXPECT_EQ(out.str(), "ServiceResult(mError=1234567, mMessage=<null>)Vector(mData=[1234567.5])");
}

TEST(RecordText, DoesNotDependOnTheStreamsFormat) {
    std::ostringstream out;
    out << std::hex << std::showpos << std::showbase << std::scientific << std::uppercase << std::setprecision(2)
        << std::setfill('*');
    ServiceResult r;
    r.mError = 255;
    out << r << vector({0.1});
    EXPECT_EQ(out.str(), "ServiceResult(mError=255, mMessage=<null>)Vector(mData=[0.10000000000000001])");
}

TEST(RecordText, TakesAWidthAwayWithoutPadding) {
    std::ostringstream out;
    out << std::setw(40) << vector({1}) << 7;
    EXPECT_EQ(out.str(), "Vector(mData=[1])7");
}

TEST(RecordText, PrintToAndTheOperatorAreOne) {
    std::ostringstream out;
    const Vector v = vector({1, 2});
    v.printTo(out);
    EXPECT_EQ(out.str(), textOf(v));
    EXPECT_EQ(&(out << v), &out);
}

/// A record of a host's own, derived from ours, prints itself through the reference to ours.
TEST(RecordText, PrintsThroughTheVirtualFunction) {
    class Point : public Vector {
        void printTo(std::ostream& out) const override { out << "a point"; }
    };
    EXPECT_EQ(textOf<Vector>(Point()), "a point");
}

} // namespace
} // namespace qel::api

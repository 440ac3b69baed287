#include <maya/MStatus.h>

#include <maya/MString.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

TEST(MStatus, CodesHaveTheNumbersOfTheApi) {
    EXPECT_EQ(MS::kSuccess, 0);
    EXPECT_EQ(MS::kFailure, 1);
    EXPECT_EQ(MS::kInsufficientMemory, 2);
    EXPECT_EQ(MS::kInvalidParameter, 3);
    EXPECT_EQ(MS::kLicenseFailure, 4);
    EXPECT_EQ(MS::kUnknownParameter, 5);
    EXPECT_EQ(MS::kNotImplemented, 6);
    EXPECT_EQ(MS::kNotFound, 7);
    EXPECT_EQ(MS::kEndOfFile, 8);
}

TEST(MStatus, IsSuccessUntilSaidOtherwise) {
    const MStatus status;
    EXPECT_TRUE(status);
    EXPECT_FALSE(status.error());
    EXPECT_EQ(status, MS::kSuccess);
    EXPECT_EQ(MS::kSuccess, status);
}

TEST(MStatus, FailureIsFalseAndComparesByCode) {
    MStatus status = MS::kNotFound;
    EXPECT_FALSE(status);
    EXPECT_TRUE(status.error());
    EXPECT_EQ(status.statusCode(), MS::kNotFound);
    EXPECT_TRUE(status != MS::kFailure);
    EXPECT_TRUE(MS::kFailure != status);
    EXPECT_TRUE(status == MStatus(MS::kNotFound));
    status.clear();
    EXPECT_TRUE(status);
}

TEST(MStatus, ErrorStringNamesTheCode) {
    EXPECT_STREQ(MStatus(MS::kFailure).errorString().asChar(), "(kFailure): the call failed");
    std::ostringstream stream;
    stream << MStatus(MS::kEndOfFile);
    EXPECT_EQ(stream.str(), "(kEndOfFile): the end of the file was reached");
}

TEST(MStatus, SetKeepsTheTextAfterTheCallersIsGone) {
    MStatus status;
    {
        const std::string text = "no such plug: a.b";
        status.set(false, MS::kInvalidParameter, text.c_str());
    }
    const MStatus copy = status;
    EXPECT_STREQ(copy.errorString().asChar(), "(kInvalidParameter): no such plug: a.b");
}

TEST(MStatus, SetNeverContradictsItself) {
    MStatus status;
    status.set(true, MS::kFailure, nullptr);
    EXPECT_EQ(status, MS::kSuccess);
    status.set(false, MS::kSuccess, nullptr);
    EXPECT_EQ(status, MS::kFailure);
}

TEST(MStatus, PerrorWritesContextAndText) {
    testing::internal::CaptureStderr();
    MStatus(MS::kNotFound).perror("findPlug");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "findPlug: (kNotFound): nothing was found\n");
}

int evaluations = 0;

MStatus fail() {
    ++evaluations;
    return MS::kFailure;
}

MStatus returnIt(const MStatus& status) {
    CHECK_MSTATUS_AND_RETURN_IT(status);
    return MS::kEndOfFile;
}

int returnNumber(const MStatus& status) {
    CHECK_MSTATUS_AND_RETURN(status, -1);
    return 1;
}

TEST(MStatusMacros, ReportTheFailureWithItsPlaceAndEvaluateOnce) {
    evaluations = 0;
    testing::internal::CaptureStderr();
    CHECK_MSTATUS(fail());
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_EQ(evaluations, 1);
    EXPECT_NE(report.find("MStatusTest.cpp:"), std::string::npos) << report;
    EXPECT_NE(report.find(": (kFailure): the call failed\n"), std::string::npos) << report;
}

TEST(MStatusMacros, ReturnOnFailureOnly) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(returnIt(MS::kNotFound), MS::kNotFound);
    EXPECT_EQ(returnNumber(MS::kNotFound), -1);
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    testing::internal::CaptureStderr();
    EXPECT_EQ(returnIt(MS::kSuccess), MS::kEndOfFile);
    EXPECT_EQ(returnNumber(MS::kSuccess), 1);
    CHECK_MSTATUS(MStatus());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace

#include "foundation/Procedure.h"

#include "foundation/BulwarkSupport.h"
#include "foundation/Version.h"
#include "support/ScriptedServices.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

using Report = ErrorComponent::Report;

class Component : public Shielded {
public:
    const char* ModuleName() const override { return "Component"; }
    void DumpVariables(VariableDump& dump) const override {
        ++mDumps;
        dump.Add("mCount", mCount);
    }

    int Fail(const std::string& Name, bool setFirst) {
        return Procedure<int>(*this, "Fail", [&](int& result, Frame& frame) {
            Watch watchName(frame, "Name", Name);
            Watch watchSetFirst(frame, "setFirst", setFirst);
            int steps = 1;
            Local watchSteps(frame, "steps", steps);
            const std::string note = "n";
            Local watchNote(frame, "note", note);
            if (setFirst) result = 5;
            steps = 2;
            RaiseError(ErrorNumber::TypeMismatch);
        });
    }

    int Outer() {
        return Procedure<int>(*this, "Outer", [&](int& result, Frame&) {
            Fail("inner", false);
            result = 7;
        });
    }

    void FailOnUndumpable(MessageIcon icon, const std::vector<int>& list) {
        Procedure(*this, "FailOnUndumpable", [&](Frame& frame) {
            Watch watchIcon(frame, "icon", icon);
            Local watchList(frame, "list", list);
            throw std::runtime_error("from a library");
        });
    }

    int mCount = 3;
    mutable int mDumps = 0;
};

class RecordingComponent : public ErrorComponent {
public:
    explicit RecordingComponent(std::vector<Report>& reports) : mReports(reports) {}
    void ErrorHandler(const Report& report) override { mReports.push_back(report); }
    std::string GetAction() const override { return "carry on"; }

private:
    std::vector<Report>& mReports;
};

class ProcedureTest : public ::testing::Test {
protected:
    void InstallErrorComponent() {
        CurrentServices().CreateErrorComponent = [this] {
            return std::make_shared<RecordingComponent>(mReports);
        };
    }

    test::ScriptedServices mServices;
    std::vector<Report> mReports;
    Component mComponent;
};

} // namespace

TEST_F(ProcedureTest, AFailureBeforeAResultGivesTheDefaultOfItsType) {
    EXPECT_EQ(mComponent.Fail("x", false), 0);
}

TEST_F(ProcedureTest, AResultThatWasSetSurvivesTheFailure) {
    EXPECT_EQ(mComponent.Fail("x", true), 5);
}

TEST_F(ProcedureTest, AFailureInsideIsReportedOnceAndTheOuterProcedureGoesOn) {
    EXPECT_EQ(mComponent.Outer(), 7);
    EXPECT_EQ(mServices.Messages->Shown.size(), 1u);
}

TEST_F(ProcedureTest, WithoutAnErrorComponentTheReportIsTheMessageBox) {
    mComponent.Fail("x", false);
    ASSERT_EQ(mServices.Messages->Shown.size(), 1u);
    EXPECT_EQ(mServices.Messages->Shown[0],
              "Application Error [critical] Paperkite4Controls has encountered a problem. We are "
              "sorry for the inconvenience.\n\nModule: Component\nProcedure: Fail\nLine Number: " +
                  std::to_string(modBulwarkSupport::bulwarkErrorLine) + "\n\nType mismatch (13)");
}

TEST_F(ProcedureTest, VariablesAreDumpedOnlyForAnErrorComponent) {
    mComponent.Fail("x", false);
    EXPECT_EQ(mComponent.mDumps, 0);
    InstallErrorComponent();
    mComponent.Fail("x", false);
    EXPECT_EQ(mComponent.mDumps, 1);
}

TEST_F(ProcedureTest, TheLastErrorIsKept) {
    mComponent.Fail("x", false);
    EXPECT_EQ(modBulwarkSupport::bulwarkErrorNumber, 13);
    EXPECT_EQ(modBulwarkSupport::bulwarkErrorDescription, "Type mismatch");
    EXPECT_EQ(modBulwarkSupport::bulwarkErrorSource, "ProcedureTest.cpp");
    EXPECT_GT(modBulwarkSupport::bulwarkErrorLine, 0);
    EXPECT_EQ(modBulwarkSupport::RunTimeErrorNumber, 13);
}

TEST_F(ProcedureTest, AnErrorComponentGetsTheWholeReport) {
    InstallErrorComponent();
    mComponent.Fail("key", false);
    ASSERT_EQ(mReports.size(), 1u);
    const Report& report = mReports[0];
    EXPECT_EQ(report.ErrorNumber, 13);
    EXPECT_EQ(report.ProjectName, "Paperkite4Controls");
    EXPECT_EQ(report.ModuleName, "Component");
    EXPECT_EQ(report.ProcedureName, "Fail");
    EXPECT_EQ(report.Description, "Type mismatch");
    EXPECT_EQ(report.LineNumber, modBulwarkSupport::bulwarkErrorLine);
    EXPECT_EQ(report.Version, kVersion);
    EXPECT_EQ(report.Parameters, "<Name>key</Name>\r\n<setFirst>False</setFirst>\r\n");
    EXPECT_TRUE(mServices.Messages->Shown.empty());
}

TEST_F(ProcedureTest, TheVariablesStandInTheirSections) {
    InstallErrorComponent();
    LastPath = "/last";
    mComponent.Fail("key", false);
    ASSERT_EQ(mReports.size(), 1u);
    const std::string& text = mReports[0].Variables;
    EXPECT_TRUE(text.starts_with("<Variables>\r\n<LocalVariables>\r\n<steps>2</steps>\r\n"
                                 "<note>n</note>\r\n</LocalVariables>\r\n<ModuleVariables>\r\n"
                                 "<mCount>3</mCount>\r\n</ModuleVariables>\r\n<GlobalVariables>\r\n"
                                 "<bulwarkProjectId>0</bulwarkProjectId>\r\n"))
        << text;
    EXPECT_TRUE(text.ends_with("<LastPath>/last</LastPath>\r\n<mAppName>Test</mAppName>\r\n"
                               "</GlobalVariables>\r\n</Variables>\r\n<Parameters>\r\n"
                               "<Name>key</Name>\r\n<setFirst>False</setFirst>\r\n"
                               "</Parameters>\r\n"))
        << text;
}

TEST_F(ProcedureTest, TheErrorComponentLeavesTheMarkerInTheErrorState) {
    InstallErrorComponent();
    mComponent.Fail("key", false);
    EXPECT_EQ(modBulwarkSupport::RunTimeErrorNumber, 65535);
    EXPECT_EQ(ReportError(1, "M", "P", "D", 2, "", "", ""), "carry on");
}

TEST_F(ProcedureTest, TheMessageBoxGivesNoAction) {
    EXPECT_EQ(ReportError(1, "M", "P", "D", 2, "", "", ""), "");
    ASSERT_EQ(mServices.Messages->Shown.size(), 1u);
}

TEST_F(ProcedureTest, TypesThatCannotBeDumpedHaveAFixedText) {
    InstallErrorComponent();
    mComponent.FailOnUndumpable(MessageIcon::None, {1});
    ASSERT_EQ(mReports.size(), 1u);
    EXPECT_EQ(mReports[0].Parameters, "<icon>{Can't dump UDT parameters}</icon>\r\n");
    EXPECT_NE(mReports[0].Variables.find("<list>{Cannot dump external UDTs}</list>"),
              std::string::npos);
    EXPECT_EQ(mReports[0].Description, "from a library");
}

TEST_F(ProcedureTest, AReporterWithoutAnyServiceStillDoesNotFail) {
    CurrentServices().MessageBox.reset();
    EXPECT_EQ(mComponent.Fail("x", true), 5);
}

} // namespace paperkite

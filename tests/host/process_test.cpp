// Programs that are started: found where they are looked for, with their words as they were.
#include "platform/host/process.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QFile>

#include "support.h"

namespace cumeron {
namespace {

struct HostProcessTest : testing::Test {
    OwnFolders own;
    HostProcess process{""};

    // Writes its words, each on a line of its own, to the file that its first word names.
    std::string Script(const std::string& name) {
        WriteFile(name,
                  "#!/bin/sh\nout=$1; shift; printf '%s\\n' \"$@\" >\"$out.new\"\n"
                  "mv \"$out.new\" \"$out\"\n");
        ::chmod(name.c_str(), 0755);
        return name;
    }
    std::string Said(const std::string& program, const std::vector<std::string>& words) {
        const std::string out = own.Path("out");
        QFile::remove(QString::fromStdString(out));
        std::vector<std::string> arguments{out};
        arguments.insert(arguments.end(), words.begin(), words.end());
        process.Start(program, arguments, "not looked at");
        EXPECT_TRUE(WaitUntil([&] { return QFile::exists(QString::fromStdString(out)); }));
        return ReadFile(out);
    }
};

TEST_F(HostProcessTest, WordsArriveAsTheyWere) {
    const std::string program = Script(own.Path("a program"));
    EXPECT_EQ(Said(program, {"a b", "\"q\"", "it's", "$(touch x)", "*", "", "-m", "H\xF6he"}),
              "a b\n\"q\"\nit's\n$(touch x)\n*\n\n-m\nH\xC3\xB6he\n");
}

TEST_F(HostProcessTest, ABareNameIsLookedForBesideTheProgramFirst) {
    const std::string beside =
        QCoreApplication::applicationDirPath().toStdString() + "/cumeron-test-program";
    Script(beside);
    EXPECT_EQ(Said("cumeron-test-program", {"beside"}), "beside\n");
    QFile::remove(QString::fromStdString(beside));
    EXPECT_EQ(ErrorOf([&] { process.Start("cumeron-test-program", {}, ""); }), 53);
    EXPECT_NO_THROW(process.Start("true", {}, ""));
}

TEST_F(HostProcessTest, WhatCannotBeStartedIsNotFound) {
    WriteFile(own.Path("text"), "no program");
    for (const std::string& name : {own.Path("none"), own.Path("text"), own.Path("config"),
                                    std::string("no/such/program"), std::string()}) {
        EXPECT_EQ(ErrorOf([&] { process.Start(name, {}, ""); }), 53) << name;
    }
}

}  // namespace
}  // namespace cumeron

#include "dashboard/ProfileFile.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

Profile parsed(const QByteArray& text) {
    return readProfile(IniFile::parse({text.constData(), static_cast<std::size_t>(text.size())}));
}

QByteArray written(const Profile& profile) {
    IniFile file;
    WriteProfileLayout(profile, file);
    WriteProfileInstruments(profile, file);
    return file.toBytes().replace("\r\n", "\n");
}

/// Where the instruments of a profile stand, "kind tab left top" each.
QStringList places(const Profile& profile) {
    QStringList all;
    for (const ProfileInstrument& i : profile.instruments)
        all << QStringLiteral("%1 %2 %3 %4")
                   .arg(QLatin1String(kindInfo(i.kind).className))
                   .arg(i.tab)
                   .arg(i.left)
                   .arg(i.top);
    return all;
}

TEST(ProfileFile, IsWrittenInItsOrder) {
    Profile profile;
    profile.width = 12000;
    profile.height = 9000;
    profile.captions = QStringList{"VX", "Engine & oil"};
    profile.port = QStringLiteral("SER,1,57600");
    profile.instruments = {{Kind::Led, 1, 1, 80, 160, 1, {"1500", "900"}},
                           {Kind::TextTag, 0, 4, -15, 0, 0, {"say \"no\"\nnever"}},
                           {Kind::Led, 0, 2, 0, 0, 0, {""}}};
    EXPECT_EQ(written(profile), "[TABS]\nWIDTH=12000\nHEIGHT=9000\nPIC=2\n"
                                "VXAGAUGE=0\nVXALPHANUME=0\nVXLED=2\nVXLGAUGE=0\nVXODO=0\nVXPCTBAR=0\n"
                                "VXSTRIP=0\nVXXYGRAPH=0\nVXTEXTTAG=1\n"
                                "[SYSTEM]\nPORT=SER,1,57600\n"
                                "[TAB]\n0=VX\n1=Engine & oil\n"
                                "[VXLED/1]\n1=VXLED/1/1\n"
                                "[VXLED/1/1]\nLEFT=80\nTOP=160\nMEM=1\n0=1500\n1=900\n"
                                "[VXTEXTTAG/0]\n1=VXTEXTTAG/0/4\n"
                                "[VXTEXTTAG/0/4]\nLEFT=-15\nTOP=0\nMEM=0\n0=say \"no\" never\n"
                                "[VXLED/0]\n2=VXLED/0/2\n"
                                "[VXLED/0/2]\nLEFT=0\nTOP=0\nMEM=0\n0=\n");
    const Profile again = parsed(written(profile));
    EXPECT_EQ(places(again), QStringList({"VXLED 0 0 0", "VXLED 1 80 160", "VXTEXTTAG 0 -15 0"}));
    EXPECT_EQ(again.captions, profile.captions);
    EXPECT_EQ(again.port, profile.port);
    EXPECT_EQ(again.width, 12000);
    EXPECT_EQ(again.instruments[1].list, QStringList({"1500", "900"}));
    EXPECT_EQ(again.instruments[0].list, QStringList(""));
    profile.port = QStringLiteral("FIL,/") + QString(4090, u'p'); // the longest path there is
    EXPECT_EQ(parsed(written(profile)).port, profile.port);
}

TEST(ProfileFile, PlacesAreWrittenWithTheDecimalsThatTheirBufferHolds) {
    struct Case {
        double twips;
        const char* text;
    };
    for (const Case& c :
         {Case{1.5, "1.5"}, Case{-0.125, "-0.125"}, Case{7, "7"}, Case{1234.56789, "1234.5679"},
          Case{-12345.678, "-12345.68"}, Case{123456789.5, "123456790"}, Case{0.00001, "0"}}) {
        Profile profile;
        profile.width = 0;
        profile.captions = QStringList("VX");
        profile.instruments = {{Kind::Led, 0, 1, c.twips, 0, 0, {"0"}}};
        const QByteArray text = written(profile);
        EXPECT_TRUE(text.contains(QByteArray("LEFT=") + c.text + "\n")) << text.constData();
        EXPECT_EQ(written(parsed(text)).toStdString(), text.toStdString());
    }
}

TEST(ProfileFile, EveryValueIsCutToItsBuffer) {
    Profile profile;
    profile.captions = QStringList{QString(40, u'c')};
    profile.port = QString(5000, u'p');
    profile.instruments = {{Kind::Led, 0, 1, 0, 0, 1, {QString(199, u'a'), QString(200, u'b')}}};
    const Profile again = parsed(written(profile));
    EXPECT_EQ(again.captions.value(0), QString(29, u'c'));
    EXPECT_EQ(again.port.size(), 4295) << "a path of any length, and words beside it";
    EXPECT_EQ(again.instruments.at(0).list, QStringList({QString(199, u'a'), QString(199, u'b')}));
    EXPECT_EQ(parsed("[TABS]\nWIDTH=1234567890\n").width, 123456789);
    const Profile longName = parsed("[TABS]\nVXLED=1\n[VXLED/0]\n1=a-name-of-20-letters\n"
                                    "[a-name-of-20-letters]\nLEFT=9\n[a-name-of-20-lette]\nLEFT=8\n"
                                    "[a-name-of-20-letter]\nLEFT=7\n");
    EXPECT_EQ(places(longName), QStringList("VXLED 0 7 0"));
}

TEST(ProfileFile, WhatIsMissingHasItsDefault) {
    struct Case {
        const char* text;
        std::optional<double> width;
        std::optional<double> height;
        QStringList captions;
        QStringList places;
    };
    const Case cases[] = {
        {"", 0, {}, {"VX"}, {}},
        {"[TABS]\nWIDTH=\nHEIGHT=x\nPIC=\n", {}, 0, {}, {}},
        {"[TABS]\nWIDTH=12 px\nHEIGHT=-5.5e1\nPIC=2.5\n[TAB]\n1=B\n1=C\n", 12, -55, {"VX", "B"}, {}},
        {"[TABS]\nPIC=-4\nVXLED=x\n[VXLED/0]\n1=VXLED/0/1\n", 0, {}, {}, {}},
        {"[TABS]\nPIC=0\nVXLED=\n[VXLED/0]\n1=VXLED/0/1\n", 0, {}, {}, {}},
        // An instrument without a section of its own; keys beyond the count, below 1, odd, empty.
        {"[TABS]\nVXLED=3\n[VXLED/0]\n4=VXLED/0/1\n0=VXLED/0/1\n01=VXLED/0/1\n-1=x\n2=\n3=VXLED/0/9\n",
         0,
         {},
         {"VX"},
         {"VXLED 0 0 0"}},
        // Both tabs' sections are tried with every key.
        {"[TABS]\nVXLED=2\n[VXLED/1]\n1=a\n[VXLED/0]\n2=b\n[a]\nLEFT=1\n[b]\nLEFT=1.5x\n",
         0,
         {},
         {"VX"},
         {"VXLED 0 1.5 0", "VXLED 1 1 0"}},
        // Of two equal sections and keys the first holds.
        {"[tabs]\nvxled=1\nvxled=5\n[TABS]\nVXLED=7\n[vxled/0]\n1=a\n[VXLED/0]\n1=b\n[a]\nTOP=3\n",
         0,
         {},
         {"VX"},
         {"VXLED 0 0 3"}},
        {"[TABS]\nVXLED=9e99\nWIDTH=9e99\nVXNONE=3\n[VXLED/0]\n2000000000=a\n[VXNONE/0]\n1=a\n",
         999999999,
         {},
         {"VX"},
         {}},
    };
    for (const Case& c : cases) {
        const Profile profile = parsed(c.text);
        EXPECT_EQ(profile.width, c.width) << c.text;
        EXPECT_EQ(profile.height, c.height) << c.text;
        EXPECT_EQ(profile.captions, c.captions) << c.text;
        EXPECT_EQ(places(profile), c.places) << c.text;
        for (const ProfileInstrument& instrument : profile.instruments)
            EXPECT_EQ(instrument.list, QStringList("0"));
    }
}

TEST(ProfileFile, AListIsAsLongAsItSays) {
    const auto list = [](const QByteArray& text) {
        return parsed("[TABS]\nVXLED=1\n[VXLED/0]\n1=a\n[a]\n" + text).instruments.at(0).list;
    };
    EXPECT_EQ(list("MEM=3\n0=x\n2=y\n5=z\n"), QStringList({"x", "0", "y", "0"}));
    EXPECT_EQ(list("MEM=-1\n0=x\n"), QStringList());
    EXPECT_EQ(list(QByteArray("MEM=0\n0=ab\0cd\n", 14)), QStringList("ab"));
}

TEST(ProfileFile, CountsAreBelievedAsFarAsTheFileHasContent) {
    EXPECT_EQ(parsed("[TABS]\nPIC=999999999\n").captions.size(), kTabsUnseen);
    QByteArray captions = "[TABS]\nPIC=999999999\n[TAB]\n";
    for (int i = 0; i < 300; ++i) captions += QByteArray::number(i) + "=T\n";
    EXPECT_EQ(parsed(captions).captions.size(), 300);
    EXPECT_EQ(parsed(captions.replace("=T", "x=T")).captions.size(), kTabsUnseen); // keys of no tab

    // A million instruments, of which the file has two, whose lists have a thousand million items.
    const Profile declared = parsed("[TABS]\nVXLED=1000000\nVXSTRIP=999999999\n"
                                    "[VXLED/0]\n1=a\n999999=a\n[a]\nMEM=999999999\n1=x\n");
    ASSERT_EQ(declared.instruments.size(), 2U);
    EXPECT_LT(declared.instruments[0].list.size(), 5000);
    EXPECT_EQ(declared.instruments[0].list.value(1), "x");
    // One list that promises too much costs no other its own.
    const Profile beside = parsed("[TABS]\nVXLED=2\n[VXLED/0]\n1=a\n2=b\n[a]\nMEM=999999999\n"
                                  "[b]\nMEM=1\n0=x\n1=y\n");
    ASSERT_EQ(beside.instruments.size(), 2U);
    EXPECT_EQ(beside.instruments[1].list, (QStringList{"x", "y"}));

    // Pages that only instruments tell of.
    const Profile far = parsed("[TABS]\nPIC=1000\nVXODO=1\n[VXODO/700]\n1=a\n[a]\nLEFT=1\n");
    EXPECT_EQ(far.captions.size(), 701);
    EXPECT_EQ(places(far), QStringList("VXODO 700 1 0"));
    // Each of many that share a section gets the whole of it.
    QByteArray shared = "[TABS]\nVXLED=500\n[VXLED/0]\n";
    for (int i = 1; i <= 500; ++i) shared += QByteArray::number(i) + "=a\n";
    shared += "[a]\nMEM=99\n";
    for (int i = 0; i < 100; ++i) shared += QByteArray::number(i) + "=x\n";
    EXPECT_EQ(parsed(shared).instruments.at(499).list, QStringList(QList<QString>(100, "x")));

    QByteArray many = "[TABS]\nVXLED=100000\n[VXLED/0]\n";
    for (int i = 1; i <= 100000; ++i) many += QByteArray::number(i) + "=a\n";
    EXPECT_EQ(parsed(many).instruments.size(), static_cast<std::size_t>(kMostInstruments));
}

} // namespace
} // namespace vistor

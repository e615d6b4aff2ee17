#include "obj/OBJReader.h"
#include "ply/PLYWriter.h"
#include "stl/STLWriter.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

QString const catalogues = u":/surfaceio/translations"_s;

// Installed while it lives, as an application does it.
class Installed
{
public:
    explicit Installed(QLocale const& locale)
    {
        if (translator.load(locale, u"surfaceio"_s, u"_"_s, catalogues))
            QCoreApplication::installTranslator(&translator);
    }
    ~Installed() { QCoreApplication::removeTranslator(&translator); }
    Installed(Installed const&) = delete;
    Installed& operator=(Installed const&) = delete;

private:
    QTranslator translator;
};

} // namespace

// The catalogues that the library carries, and who sees them.
class tst_Translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void languages_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("plyMessage");
        QTest::addColumn<QString>("stlMessage");
        QTest::newRow("German") << u"de"_s << u"viereckige Flächen werden nicht unterstützt"_s
                                << u"Die .ply-Datei kann hier nicht angelegt werden: %1"_s
                                << u"Es wurden keine Daten gesetzt."_s;
        QTest::newRow("German of Austria")
            << u"de_AT"_s << u"viereckige Flächen werden nicht unterstützt"_s
            << u"Die .ply-Datei kann hier nicht angelegt werden: %1"_s << u"Es wurden keine Daten gesetzt."_s;
        QTest::newRow("Polish") << u"pl_PL"_s << u"ściany czworokątne nie są obsługiwane"_s
                                << u"Nie można utworzyć pliku .ply w tym miejscu: %1"_s
                                << u"Nie ustawiono danych."_s;
        QTest::newRow("English") << u"en"_s << u"quad faces not supported"_s
                                 << u"Unable to create .ply file at location: %1"_s
                                 << u"Member variable(s) not set."_s;
        QTest::newRow("one without a catalogue")
            << u"fi"_s << u"quad faces not supported"_s << u"Unable to create .ply file at location: %1"_s
            << u"Member variable(s) not set."_s;
    }

    void languages()
    {
        QFETCH(QString, language);
        QFETCH(QString, error);
        QFETCH(QString, plyMessage);
        QFETCH(QString, stlMessage);
        Installed const installed{QLocale(language)};
        QCOMPARE(conversions::toString(OBJReader::QuadFacesNotSupported), error);
        QTemporaryDir const folder;
        PLYWriter ply;
        ply.setFilePath(folder.path());
        QVERIFY(!ply.write());
        QCOMPARE(ply.getErrorMessage(), plyMessage.arg(folder.path()));
        STLWriter stl;
        QByteArray bytes;
        QVERIFY(!stl.write(bytes));
        QCOMPARE(stl.getErrorMessage(), stlMessage);
    }

    void englishAgainWithoutTranslator()
    {
        QString const english = conversions::toString(OBJReader::NoData);
        {
            Installed const installed{QLocale(u"de"_s)};
            QCOMPARE(conversions::toString(OBJReader::NoData), u"keine Daten"_s);
        }
        QCOMPARE(conversions::toString(OBJReader::NoData), english);
        QCOMPARE(english, u"no data"_s);
    }

    // The texts that are empty stay so.
    void everyErrorIsTranslated()
    {
        Installed const installed{QLocale(u"pl"_s)};
        for (int i = 0; i <= OBJReader::TextureProcessingFailed; ++i) {
            auto const error = static_cast<OBJReader::Error>(i);
            QString const polish = conversions::toString(error);
            QString const german = [error] {
                Installed const inFront{QLocale(u"de"_s)};
                return conversions::toString(error);
            }();
            bool const isSilent = error == OBJReader::NoError || error == OBJReader::TextureProcessingFailed;
            QCOMPARE(polish.isEmpty(), isSilent);
            QCOMPARE(polish == german, isSilent);
        }
    }
};

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_Translations.moc"

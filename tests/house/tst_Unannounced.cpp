#include <QTest>

/// Logs what nobody announced: its runs have to fail.
class tst_Unannounced : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void warning() { qWarning("nobody expects this"); }
    void critical() { qCritical("nor this"); }
    void debug() { qDebug("nor even this"); }
};

QTEST_APPLESS_MAIN(tst_Unannounced)
#include "tst_Unannounced.moc"

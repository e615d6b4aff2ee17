#pragma once

#include <QMessageLogContext>
#include <QMutex>
#include <QStringList>

namespace hostile {

/// Collects what is logged while it lives: a damaged file may cause any of a reader's messages. One at a
/// time.
class Messages
{
public:
    Messages();
    ~Messages();
    Q_DISABLE_COPY_MOVE(Messages)

    QStringList take();
    /// The first line that Qt wrote about a misuse of its own classes, such as "QIODevice::seek: ..."; empty
    /// when there is none. The library never lets a file go that far.
    QString complaintOfQt() const;

private:
    static void keep(QtMsgType type, QMessageLogContext const& context, QString const& text);

    QtMessageHandler before;
};

} // namespace hostile

#ifndef APPS_CLI_PASSWORD_H
#define APPS_CLI_PASSWORD_H

#include <QByteArray>
#include <QString>

namespace photocli
{

/// The password of an encrypted backup, overwritten when the object goes.
class Password
{
public:
    /// Reads the first line of `file` ("-" for standard input), or asks on the terminal, without showing what is typed,
    /// when there is no file. Throws a Failure when there is neither, and when it cannot be read. `device` is what the
    /// question names.
    Password(const QString &file, const QString &device);
    ~Password();
    Password(const Password &) = delete;
    Password &operator=(const Password &) = delete;

    /// UTF-8. Not to be copied.
    const QByteArray &bytes() const { return password; }

private:
    QByteArray password;
};

} // namespace photocli

#endif

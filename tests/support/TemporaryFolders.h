// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <filesystem>

namespace norvane {

/// A fresh folder for application data that is gone with this object.
class TemporaryFolders {
public:
    TemporaryFolders()
    {
        // Also the tests that run as another user must get in.
        QFile::setPermissions(temporary_.path(), QFile::Permissions{0x7755});
    }
    TemporaryFolders(const TemporaryFolders &) = delete;
    TemporaryFolders &operator=(const TemporaryFolders &) = delete;
    ~TemporaryFolders()
    {
        // A test may have locked what is to be removed.
        for (const QString &path : {root(), storeFolder()}) {
            QFile::setPermissions(path, QFile::Permissions{0x7700});
        }
    }

    [[nodiscard]] std::filesystem::path path() const { return root().toStdString(); }
    [[nodiscard]] QString root() const { return temporary_.path(); }
    [[nodiscard]] QString storeFolder() const { return root() + QStringLiteral("/Norvane"); }
    [[nodiscard]] QString trialsFile() const
    {
        return storeFolder() + QStringLiteral("/trials.json");
    }

    /// What the trials file holds; a null array without one.
    [[nodiscard]] QByteArray bytes() const
    {
        QFile file{trialsFile()};
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray{};
    }
    /// Makes the trials file, and its folder where needed.
    void write(const QByteArray &bytes) const
    {
        QDir{}.mkpath(storeFolder());
        QFile file{trialsFile()};
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("Cannot write %s", qUtf8Printable(file.fileName()));
        }
    }

private:
    QTemporaryDir temporary_;
};

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/panel/PanelFixture.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest/quicktest.h>

Q_IMPORT_QML_PLUGIN(org_norvane_panelPlugin)

namespace norvane {

/// What all Qt Quick tests of the panel start from.
class QuickTestSetup : public QObject {
    Q_OBJECT

public slots:
    void applicationAvailable()
    {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        QAccessible::setActive(true);
    }
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        qmlRegisterType<PanelFixture>("org.norvane.tests", 1, 0, "PanelFixture");
    }
};

} // namespace norvane

QUICK_TEST_MAIN_WITH_SETUP(panel, norvane::QuickTestSetup)
#include "quick_tests.moc"

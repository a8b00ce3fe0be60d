// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/NorvaneApp.h"

#include <cstdlib>

int main(int argc, char *argv[])
{
    if (!norvane::NorvaneApp::prepare()) {
        return EXIT_FAILURE;
    }
    norvane::NorvaneApp app{argc, argv};
    return app.run();
}

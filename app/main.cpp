// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/NorvaneApp.h"

int main(int argc, char *argv[])
{
    return norvane::NorvaneApp::run(argc, argv);
}

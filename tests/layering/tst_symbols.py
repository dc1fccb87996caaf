#!/usr/bin/env python3
"""The face of the shell library: the login window, the main window, the file summary; nothing else."""
import os
import re
import subprocess
import unittest

import totals

LIBRARY = os.path.join(totals.BUILD, "bin", "libOvTarnpick.so")
CLASSES = r"(OvLoginDlg|OvTarnpick)"
ALLOWED = re.compile(
    rf"{CLASSES}::.*|(vtable|typeinfo|typeinfo name) for {CLASSES}"
    rf"|non-virtual thunk to {CLASSES}::.*|OvTarnpickUtil::displaySegyInfo\(.*\)"
)


def exported():
    query = ["nm", "-DC", "--defined-only", "--format=posix", LIBRARY]
    lines = subprocess.run(query, check=True, capture_output=True, text=True).stdout.splitlines()
    return [re.sub(r" [A-Za-z] [0-9a-f ]*$", "", line) for line in lines]


class Symbols(unittest.TestCase):
    def test_nothing_else_is_exported(self):
        self.assertEqual([], [name for name in exported() if not ALLOWED.fullmatch(name)])

    def test_the_three_are_exported(self):
        names = exported()
        for start in ("OvLoginDlg::OvLoginDlg(", "OvLoginDlg::login()", "OvTarnpick::OvTarnpick(",
                      "OvTarnpick::populate(", "OvTarnpickUtil::displaySegyInfo(",
                      "OvTarnpick::staticMetaObject", "vtable for OvTarnpick"):
            self.assertTrue(any(name.startswith(start) for name in names), start)


totals.main()

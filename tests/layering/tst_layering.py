#!/usr/bin/env python3
"""The layers of the tree: no forbidden include, and the check itself sees one."""
import os
import tempfile
import unittest

import layers
import totals


class Layering(unittest.TestCase):
    def test_tree_keeps_the_layers(self):
        self.assertEqual([], layers.violations(totals.ROOT))

    def test_every_folder_of_the_table_has_sources(self):
        for folder in layers.RULES:
            self.assertTrue(any(layers.sources(totals.ROOT, folder)), folder)


class Checker(unittest.TestCase):
    def check(self, path, line):
        with tempfile.TemporaryDirectory() as root:
            full = os.path.join(root, path)
            os.makedirs(os.path.dirname(full))
            with open(full, "w", encoding="utf-8") as file:
                file.write(f"#include {line}\n")
            return layers.violations(root)

    def test_upward_includes_are_found(self):
        for path, line in (
            ("src/OvSeismic/a.cpp", '"OvBase/OvBaseUtil.h"'),
            ("src/OvBase/a.h", '"OvGui/OvAbstractViewController.h"'),
            ("src/OvGui/a.cpp", '"OvPlugins/OvModulePlugin.h"'),
            ("src/OvPlugins/a.cpp", '"OvTarnpick/OvTarnpick.h"'),
            ("src/batch/a.cpp", '"OvBase/OvBaseUtil.h"'),
            ("src/host/a.cpp", '"OvTarnpick/OvTarnpickHelper.h"'),
            ("modules/M/a.cpp", '"OvTarnpick/OvTarnpick.h"'),
        ):
            self.assertEqual(1, len(self.check(path, line)), path + line)

    def test_shell_sees_the_public_framework_only(self):
        self.assertEqual(1, len(self.check("src/OvTarnpick/a.cpp", '"OvBase/OvDatabase_p.h"')))
        self.assertEqual(1, len(self.check("src/OvTarnpick/a.cpp", '"OvGui/OvGatherViewController.h"')))
        self.assertEqual([], self.check("src/OvTarnpick/a.cpp", '"OvBase/OvBaseUtil.h"'))

    def test_private_headers_stay_inside(self):
        self.assertEqual(1, len(self.check("src/OvGui/a.cpp", '"OvBase/OvDatabase_p.h"')))
        self.assertEqual([], self.check("src/OvBase/a.cpp", '"OvBase/OvDatabase_p.h"'))

    def test_widgets_stay_out_of_headless_folders(self):
        self.assertEqual(1, len(self.check("src/OvSeismic/a.cpp", "<QWidget>")))
        self.assertEqual(1, len(self.check("src/batch/a.cpp", "<QtWidgets/QLabel>")))
        self.assertEqual([], self.check("src/OvSeismic/a.cpp", "<QString>"))

    def test_ready_panels_are_open_to_plugins(self):
        line = '"OvTarnpick/gadget/OvPickFBDefineWidget.h"'
        self.assertEqual([], self.check("modules/M/a.cpp", line))


totals.main()

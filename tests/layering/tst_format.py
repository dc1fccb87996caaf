#!/usr/bin/env python3
"""The layout of the sources: what clang-format makes of them is what they are."""
import os
import subprocess
import unittest

import totals


class Format(unittest.TestCase):
    def test_sources_are_laid_out(self):
        script = os.path.join(totals.ROOT, "scripts", "format")
        run = subprocess.run([script, "--check"], capture_output=True, text=True)
        self.assertEqual(0, run.returncode, run.stdout + run.stderr)


totals.main()

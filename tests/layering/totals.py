"""Runs the unittest cases of the main module and ends with a line like that of the toolkit's tests."""
import os
import sys
import unittest

ROOT = os.environ.get("TARNPICK_SOURCE_DIR") or os.path.abspath(
    os.path.join(os.path.dirname(__file__), "..", "..")
)
BUILD = os.environ.get("TARNPICK_BUILD_DIR", "")


def main():
    suite = unittest.defaultTestLoader.loadTestsFromModule(sys.modules["__main__"])
    result = unittest.TextTestRunner(verbosity=2, stream=sys.stdout).run(suite)
    failed = len(result.failures) + len(result.errors)
    skipped = len(result.skipped)
    print(f"Totals: {result.testsRun - failed - skipped} passed, {failed} failed, {skipped} skipped")
    sys.exit(1 if failed or not result.testsRun else 0)

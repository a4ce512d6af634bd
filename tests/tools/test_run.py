# SPDX-License-Identifier: GPL-3.0-or-later
"""What ./run builds: the script itself runs, with stand-ins for what it calls."""
import os
import shutil
import subprocess
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


class Run(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        shutil.copy(os.path.join(ROOT, "run"), self.folder)
        shutil.copy(os.path.join(ROOT, "CMakePresets.json"), self.folder)
        shutil.copytree(os.path.join(ROOT, "packaging"), os.path.join(self.folder, "packaging"))
        self.tool("cmake", f'echo "$@" >> "{self.folder}/calls"')
        self.tool("dpkg-query", 'printf "install ok installed"')

    def tool(self, name, script):
        path = os.path.join(self.folder, "bin", name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="ascii") as file:
            file.write("#!/bin/sh\n" + script + "\n")
        os.chmod(path, 0o755)

    def built(self):
        """The targets that the build was asked for."""
        path = os.path.join(self.folder, "bin") + ":" + os.environ["PATH"]
        os.makedirs(os.path.join(self.folder, "build", "release"))
        result = subprocess.run([os.path.join(self.folder, "run"), "--build-only"], check=False,
                                env={**os.environ, "PATH": path}, capture_output=True, timeout=60)
        self.assertEqual(result.returncode, 0, result.stderr)
        with open(os.path.join(self.folder, "calls"), encoding="utf-8") as file:
            builds = [line.split() for line in file if "--build" in line]
        self.assertEqual(len(builds), 1)
        return builds[0][builds[0].index("--target") + 1:]

    def test_every_program_that_the_readme_names_is_built(self):
        with open(os.path.join(ROOT, "README.md"), encoding="utf-8") as file:
            readme = file.read()
        targets = self.built()
        self.assertEqual(targets, ["tovik", "tovik-skin"])
        for target in targets:
            self.assertIn(target, readme)


if __name__ == "__main__":
    unittest.main()

"""A print server of the test's own: its queues keep what was printed, and nothing reaches paper."""
import os
import pathlib
import re
import shutil
import subprocess
import tempfile

import outside

CONFIGURATION = """LogLevel warn
Listen {folder}/cups.sock
WebInterface No
Browsing No
DefaultAuthType None
PreserveJobHistory Yes
PreserveJobFiles Yes
<Location />
  Order allow,deny
  Allow all
</Location>
<Location /admin>
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    Order deny,allow
    Allow all
  </Limit>
</Policy>
"""

FILES = """FileDevice Yes
{owner}SystemGroup {group}
ServerRoot {folder}/etc
RequestRoot {folder}/spool
CacheDir {folder}/cache
StateDir {folder}/state
TempDir {folder}/temp
AccessLog {folder}/access.log
ErrorLog {folder}/error.log
PageLog {folder}/page.log
"""


class PrintServer:
    """Started on a stage, which stops it; programs of the stage then print there."""

    def __init__(self, stage):
        self.stage = stage
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="lobegraph-cups-"))
        stage.callback(shutil.rmtree, self.folder, ignore_errors=True)
        self.folder.chmod(0o755)
        for name in ("etc", "spool", "cache", "state", "temp"):
            (self.folder / name).mkdir(mode=0o770)
        as_root = os.geteuid() == 0
        if as_root:
            for name in ("spool", "cache", "state", "temp"):
                shutil.chown(self.folder / name, "root", "lp")
            (self.folder / "spool").chmod(0o710)
        owner = "User lp\nGroup lp\n" if as_root else ""
        group = "root" if as_root else "lpadmin"
        configuration = self.folder / "etc" / "cupsd.conf"
        configuration.write_text(CONFIGURATION.format(folder=self.folder))
        files = self.folder / "etc" / "cups-files.conf"
        files.write_text(FILES.format(folder=self.folder, owner=owner, group=group))
        stage.environment["CUPS_SERVER"] = f"{self.folder}/cups.sock"
        self.process = stage.start("/usr/sbin/cupsd", "-f", "-c", configuration, "-s", files,
                                   log=self.folder / "cupsd.log")
        outside.wait_for("the print server", 15, lambda: "is running" in stage.output("lpstat", "-r"))

    def command(self, *parts):
        done = subprocess.run([str(part) for part in parts], env=self.stage.environment, capture_output=True, text=True,
                              check=False)
        if done.returncode != 0:
            raise RuntimeError(f"{parts}: {done.stdout}{done.stderr}{(self.folder / 'error.log').read_text()}")
        return done.stdout

    def add_queue(self, name, *options):
        """A queue that takes everything as it is and sends it nowhere."""
        self.command("/usr/sbin/lpadmin", "-p", name, "-E", "-v", "file:///dev/null", "-m", "raw", *options)

    def jobs(self, which, queue):
        """Job names ("laser-3") on a queue, `which` being "completed" or "not-completed"."""
        listed = self.stage.output("lpstat", "-W", which, "-o", queue)
        return re.findall(rf"^({re.escape(queue)}-\d+) ", listed, re.MULTILINE)

    def document(self, job):
        """The file that a job was sent with."""
        number = int(job.rsplit("-", 1)[1])
        return self.folder / "spool" / f"d{number:05}-001"

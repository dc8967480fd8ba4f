"""Turns of the real program that measure with a radio's signal meter: a radio behind its daemon, the publishing program, the
store."""
import queue
import re
import signal
import socket
import subprocess
import threading
import time
import unittest

from from_outside import PROGRAMS, outside, wait_for
from rotator import METER, READINGS, MeanOfThree, Rotator, WithParts, published, saved_readings, stored_db, wait_for_published


class Relay:
    """Stands between the publishing program and the radio's daemon: a question goes on when the test says so, and each
    answer is known."""

    def __init__(self, daemon_port):
        self.daemon_port = daemon_port
        self.server = socket.create_server(("127.0.0.1", 0))
        self.port = self.server.getsockname()[1]
        self.leave, self.answers = queue.Queue(), queue.Queue()
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        client, _ = self.server.accept()
        with client, socket.create_connection(("127.0.0.1", self.daemon_port)) as daemon:
            answered = daemon.makefile("rb")
            for question in client.makefile("rb"):
                self.leave.get()
                daemon.sendall(question)
                answer = answered.readline()
                self.answers.put(int(answer))
                client.sendall(answer)

    def next_answer(self):
        self.leave.put(None)
        return self.answers.get(timeout=20)


class Radio(WithParts):
    REFERENCE = -20  # published as -5 dBm

    def radio(self):
        """@return the port of a daemon that answers for a radio which is not there"""
        with socket.socket() as probe:
            probe.bind(("127.0.0.1", 0))
            port = probe.getsockname()[1]
        daemon = self.stage.start("rigctld", "-m", "1", "-t", port)
        self.addCleanup(outside.stop, daemon)
        wait_for("the daemon", 20, lambda: self.answers(port))
        return port

    @staticmethod
    def answers(port):
        try:
            socket.create_connection(("127.0.0.1", port)).close()
            return True
        except ConnectionRefusedError:
            return False

    def publish(self, port, *options):
        meter = self.stage.start(PROGRAMS / "lobegraph-meter", "--port", port, "--reference", self.REFERENCE, *options,
                                 log=self.log)
        self.addCleanup(outside.stop, meter)
        return meter

    def test_each_stored_value_is_what_the_radio_reported(self):
        relay = Relay(self.radio())
        self.publish(relay.port, "--limit", 60000, "--interval", 1)
        expected, model = [], MeanOfThree()

        def radio_reports():
            dbm = relay.next_answer() - self.REFERENCE - 5
            wait_for(f"{dbm} dBm", 20, lambda: published(self.stage).get("Reading") == f"{dbm:.2f}", 0.0005)
            return dbm

        first = radio_reports()
        wait_for_published(self.stage)
        lines, _ = self.machine.serial_port("ttyUSB0")
        program = self.open(GaugeBridge="True", Commtrigger="1")
        rotator = Rotator(program, lines)
        program.press("Collect Data")
        rotator.wait_ready()
        for _ in range(4):  # three that a turn waits for, and the one sample of the delay before it
            model.take(first)
        for _ in range(90):
            rotator.wait_ready()
            expected.append(model.reading(radio_reports()))
            rotator.pulse()
        rotator.wait_ready()
        program.press("Halt Collection")
        readings = saved_readings(self, program)
        self.assertEqual(len(readings), len(expected))
        self.assertGreater(len({round(level) for level in expected}), 5, "the radio's signal moves")
        for index, (stored, level) in enumerate(zip(readings, expected)):
            self.assertAlmostEqual(stored_db(stored), stored_db(level), delta=0.001, msg=f"reading {index}")

    def test_a_free_running_turn_stays_among_what_was_published_and_the_end_is_published(self):
        meter = self.publish(self.radio())
        wait_for_published(self.stage)
        program = self.open_window(**METER, GaugeBridge="True", RotateTime=4)
        values, over = [], threading.Event()

        def watch():
            while not over.wait(0.005):
                values.append(max(float(published(self.stage)["Reading"]), -60))

        watcher = threading.Thread(target=watch)
        watcher.start()
        try:
            wait_for("a value", 10, lambda: values)
            program.press("Collect Data")
            wait_for("the turn to begin", 10, lambda: program.enabled("Halt Collection"))
            wait_for("the end of the turn", 60, lambda: program.enabled("Collect Data"))
        finally:
            over.set()
            watcher.join()
        stored = [stored_db(level) - 60 for level in saved_readings(self, program)]
        self.assertEqual(len(stored), READINGS)
        # Of the radio's jitter of up to 3 dB, many times a second, not every value was seen here.
        self.assertGreaterEqual(min(stored), min(values) - 3.1)
        self.assertLessEqual(max(stored), max(values) + 3.1)
        outside.stop(meter)
        self.assertEqual(published(self.stage)["Active"], "N")

    def test_a_publishing_program_that_is_killed_in_mid_turn_is_told_and_no_source_of_the_next(self):
        meter = self.publish(self.radio())
        wait_for_published(self.stage)
        program = self.open_window(**METER, GaugeBridge="True", RotateTime=9)
        self.start_collecting(program, 100)
        meter.kill()
        words = self.close_box(program)
        told = re.search(r"The meter had no fresh value for (\d+) readings, the first is No\. (\d+)\.", words)
        self.assertTrue(told, words)
        self.assertGreaterEqual(int(told.group(2)), 100)
        self.assertLess(int(told.group(2)), 200)
        self.assertEqual(int(told.group(1)), READINGS + 1 - int(told.group(2)), "all of them to the end")
        self.assertEqual(published(self.stage)["Active"], "Y", "it could say nothing any more")
        program.press("Collect Data")
        self.assertIn("The external power meter is not ready and receiving readings.", self.close_box(program))
        self.leave(program)

    def test_the_bench_takes_back_what_it_published_however_it_is_asked_to_end(self):
        for number in (signal.SIGHUP, signal.SIGTERM, signal.SIGINT):
            bench = self.stage.start(PROGRAMS / "lobegraph-bench", "--as", "program", "--antenna", "omni")
            self.addCleanup(outside.stop, bench)
            wait_for_published(self.stage)
            bench.send_signal(number)
            bench.wait(10)
            self.assertEqual(published(self.stage)["Active"], "N", number)

    def test_one_who_stops_reading_what_it_prints_does_not_end_it(self):
        port = self.radio()
        environment = self.stage.environment | {"XDG_CONFIG_HOME": str(self.stage.settings.parent.parent)}
        meter = subprocess.Popen([str(PROGRAMS / "lobegraph-meter"), "--port", str(port), "--reference", str(self.REFERENCE)],
                                 stdout=subprocess.PIPE, env=environment)
        self.addCleanup(outside.stop, meter)
        meter.stdout.readline()
        meter.stdout.close()
        wait_for_published(self.stage)
        beat = published(self.stage)["Beat"]
        wait_for("another beat", 5, lambda: published(self.stage)["Beat"] != beat)
        time.sleep(1.5)  # it prints once a second
        self.assertIsNone(meter.poll())
        meter.terminate()
        meter.wait(10)
        self.assertEqual(published(self.stage)["Active"], "N")


if __name__ == "__main__":
    unittest.main(verbosity=2)

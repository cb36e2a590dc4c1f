"""Runs one command of the tool with every n-th allocation failing, once and from then on: it does all its work, or says
in one line that it cannot, with the exit status of a failure and nothing on the way to a signal."""
import os
import subprocess
import sys

shim, failure, runs, *command = sys.argv[1:]


def run(at, once=False):
    environment = {**os.environ, "LD_PRELOAD": shim, "FAIL_AT": str(at)}
    if once:
        environment["FAIL_ONCE"] = "1"
    return subprocess.run(command, env=environment, capture_output=True)


read, write = os.pipe()
os.dup2(write, 9)
whole = subprocess.run(command, env={**os.environ, "LD_PRELOAD": shim, "FAIL_AT": "0"}, capture_output=True,
                       pass_fds=[9])
os.close(write)
os.close(9)
count = int(os.read(read, 100))
assert count > 100, f"{count} allocations are too few to fail"

failed = 0
step = max(1, count * 2 // int(runs))
for at in range(1, count + 1, step):
    for once in (False, True):
        result = run(at, once)
        if (result.returncode, result.stdout) == (whole.returncode, whole.stdout):
            continue
        failed += 1
        lines = result.stderr.decode().splitlines()
        more = [line for line in lines if line.encode() not in whole.stderr]
        assert result.returncode == int(failure) and len(more) == 1, (
            f"allocation {at} of {count}{' alone' if once else ''}: status {result.returncode}, {lines}")
assert failed > 10, f"only {failed} runs failed"
print(f"{count} allocations, {failed} runs failed")

#!/usr/bin/python3
# A loopback FTP server for the tests. Anonymous: read-only, home ROOT/pub.
# USER/PASSWORD: read and write, home ROOT (ROOT/incoming is the writable folder the tests use).
# Binds the given port (0: any free port) and prints the port on stdout once it listens.
import argparse, logging, os, signal, sys
from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer

ap = argparse.ArgumentParser()
ap.add_argument("--root", required=True)
ap.add_argument("--port", type=int, default=0)
ap.add_argument("--user", default="tester")
ap.add_argument("--password", default="secret")
ap.add_argument("--log")
a = ap.parse_args()
os.makedirs(os.path.join(a.root, "pub"), exist_ok=True)
os.makedirs(os.path.join(a.root, "incoming"), exist_ok=True)
auth = DummyAuthorizer()
auth.add_user(a.user, a.password, a.root, perm="elradfmwMT")
auth.add_anonymous(os.path.join(a.root, "pub"), perm="elr")


class Handler(FTPHandler):
    pass


Handler.authorizer = auth
Handler.passive_ports = None        # any free port for EPSV/PASV
Handler.auth_failed_timeout = 0.1   # the default pauses 3 s after each refused login
logging.basicConfig(filename=a.log, level=logging.INFO)
server = FTPServer(("127.0.0.1", a.port), Handler)
signal.signal(signal.SIGTERM, lambda *_: server.close_all() or sys.exit(0))
sys.stdout.write("%d\n" % server.address[1])
sys.stdout.flush()
server.serve_forever()

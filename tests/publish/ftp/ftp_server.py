"""FTP server on 127.0.0.1 for the tests, with an optional HTTP side that
plays the entries service: asked for a competition's entries, it copies the
waiting file into the FTP root. Prints "ready <ftp port> <http port>"."""
import argparse
import http.server
import os
import shutil
import sys
import threading
import urllib.parse

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer

ap = argparse.ArgumentParser()
ap.add_argument("--root", required=True)
ap.add_argument("--user", required=True)
ap.add_argument("--password", required=True)
ap.add_argument("--log", required=True)
ap.add_argument("--entries")
args = ap.parse_args()


def log(line):
    with open(args.log, "a") as f:
        f.write(line + "\n")


class Handler(FTPHandler):
    def pre_process_command(self, line, cmd, arg):
        log(line if cmd != "PASS" else cmd)
        return super().pre_process_command(line, cmd, arg)


authorizer = DummyAuthorizer()
authorizer.add_user(args.user, args.password, args.root, perm="elradfmwMT")
Handler.authorizer = authorizer
ftp = FTPServer(("127.0.0.1", 0), Handler)
http_port = 0

if args.entries:
    class Entries(http.server.BaseHTTPRequestHandler):
        def do_GET(self):
            url = urllib.parse.urlparse(self.path)
            log("GET " + self.path)
            compid = urllib.parse.parse_qs(url.query).get("compid", [""])[0]
            waiting = os.path.join(args.entries, compid + ".csv")
            if url.path == "/tallier/onlinereg/online_entries.php" and os.path.isfile(waiting):
                shutil.copyfile(waiting, os.path.join(args.root, compid + ".csv"))
            self.send_response(200)
            self.end_headers()
            self.wfile.write(b"OK")

        def log_message(self, *a):
            pass

    web = http.server.HTTPServer(("127.0.0.1", 0), Entries)
    http_port = web.server_address[1]
    threading.Thread(target=web.serve_forever, daemon=True).start()

print("ready", ftp.address[1], http_port, flush=True)
ftp.serve_forever(handle_exit=False)

"""Keys and certificates, made with the openssl tool once and kept in a folder."""

import os
import pathlib
import shutil
import ssl
import subprocess
import tempfile
import threading

DAYS = "10950"
EXTENSIONS = """\
[ca]
basicConstraints=critical,CA:TRUE
[leaf]
basicConstraints=critical,CA:FALSE
keyUsage=critical,digitalSignature,keyEncipherment
"""


def run_openssl(folder, *arguments):
    result = subprocess.run(
        ["openssl", *arguments], cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, check=False
    )
    if result.returncode != 0:
        raise RuntimeError(f"openssl {arguments[0]}: {result.stderr.decode(errors='replace')}")


def make(folder):
    """Keys of the phone, of the authority and of the host, and the certificates that a pairing makes of them."""
    (folder / "extensions.cnf").write_text(EXTENSIONS)
    for name in ("root", "host", "device"):
        run_openssl(folder, "genrsa", "-traditional", "-out", f"{name}.key", "2048")
    run_openssl(
        folder, "req", "-x509", "-new", "-key", "root.key", "-subj", "/CN=Root", "-days", DAYS, "-out", "root.crt"
    )  # fmt: skip
    for name in ("host", "device"):
        run_openssl(folder, "req", "-new", "-key", f"{name}.key", "-subj", f"/CN={name}", "-out", f"{name}.csr")
        run_openssl(
            folder, "x509", "-req", "-in", f"{name}.csr", "-CA", "root.crt", "-CAkey", "root.key", "-set_serial", "1",
            "-days", DAYS, "-extfile", "extensions.cnf", "-extensions", "leaf", "-out", f"{name}.crt",
        )  # fmt: skip
    run_openssl(folder, "rsa", "-in", "device.key", "-RSAPublicKey_out", "-out", "device.pub")


class Certificates:
    """The folder is made when it is missing. Several programs may do so at the same time: the first one's is used."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.lock = threading.Lock()
        self.contexts = {}
        if not (self.folder / "device.pub").exists():
            self.folder.parent.mkdir(parents=True, exist_ok=True)
            made = pathlib.Path(tempfile.mkdtemp(dir=self.folder.parent, prefix=self.folder.name))
            try:
                make(made)
                os.rename(made, self.folder)
            except OSError:
                if not (self.folder / "device.pub").exists():
                    raise
            finally:
                shutil.rmtree(made, ignore_errors=True)

    def read(self, name):
        return (self.folder / name).read_bytes()

    def public_key(self):
        return self.read("device.pub")

    def pair_record(self, host_id, system_buid):
        """The record of a computer that this phone trusts."""
        return {
            "HostID": host_id,
            "SystemBUID": system_buid,
            "RootCertificate": self.read("root.crt"),
            "RootPrivateKey": self.read("root.key"),
            "HostCertificate": self.read("host.crt"),
            "HostPrivateKey": self.read("host.key"),
            "DeviceCertificate": self.read("device.crt"),
            "EscrowBag": b"no bag",
        }

    def context(self, record):
        """The phone's side of TLS with the host of this record; hosts must show a certificate of its authority."""
        key = record["DeviceCertificate"]
        with self.lock:
            if key not in self.contexts:
                context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
                # Hosts sign with SHA-1, which higher levels refuse.
                context.set_ciphers("DEFAULT@SECLEVEL=0")
                context.maximum_version = ssl.TLSVersion.TLSv1_2
                with tempfile.NamedTemporaryFile() as file:
                    file.write(key)
                    file.flush()
                    context.load_cert_chain(file.name, self.folder / "device.key")
                context.load_verify_locations(cadata=record["RootCertificate"].decode())
                context.verify_mode = ssl.CERT_REQUIRED
                self.contexts[key] = context
            return self.contexts[key]

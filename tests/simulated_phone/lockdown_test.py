import plistlib
import ssl
import threading
import unittest

from phone_case import HOST_ID, Afc, Ended, PhoneCase


class Values(PhoneCase):
    PHONES = [{"name": "Käthe's", "product_version": "12.5.7"}]

    def test_are_what_the_phone_was_made_with(self):
        lockdown = self.lockdown()
        self.assertEqual(lockdown.call("QueryType")["Type"], "com.apple.mobile.lockdown")
        self.assertEqual(lockdown.call("GetValue", Key="DeviceName")["Value"], "Käthe's")
        self.assertEqual(lockdown.call("GetValue", Key="ProductVersion")["Value"], "12.5.7")
        self.assertEqual(lockdown.call("GetValue")["Value"]["UniqueDeviceID"], self.phone.udid)

    def test_are_missing_where_there_is_none(self):
        for request in ({"Key": "Mood"}, {"Key": "DeviceName", "Domain": "elsewhere"}):
            self.assertEqual(self.lockdown().call("GetValue", **request)["Error"], "MissingValue")

    def test_private_ones_need_a_session(self):
        lockdown = self.lockdown()
        self.assertEqual(lockdown.call("GetValue", Key="SerialNumber")["Error"], "MissingValue")
        lockdown.start_session()
        self.assertEqual(lockdown.call("GetValue", Key="SerialNumber")["Value"], "SIMULATED001")

    def test_can_be_set(self):
        self.tell("set DeviceName 'Another one'")
        self.assertEqual(self.lockdown().call("GetValue", Key="DeviceName")["Value"], "Another one")

    def test_an_unknown_request_is_refused(self):
        self.assertEqual(self.lockdown().call("Dance")["Error"], "InvalidRequest")


class Pairing(PhoneCase):
    PHONES = [{"paired": False}]

    def pair(self, host_id="a host"):
        record = {**self.phone.keys.pair_record(host_id, "a computer")}
        return self.lockdown().call("Pair", PairRecord=record)

    def session_error(self, host_id="a host"):
        return self.lockdown().start_session(host_id).get("Error")

    def test_lets_the_host_start_sessions(self):
        self.assertEqual(self.session_error(), "InvalidHostID")
        self.assertIn("EscrowBag", self.pair())
        self.assertIsNone(self.session_error())
        self.assertEqual(self.session_error("another"), "InvalidHostID")

    def test_waits_for_the_answer_on_the_screen(self):
        for answer, error in (("pending", "PairingDialogResponsePending"), ("refused", "UserDeniedPairing")):
            self.tell(f"trust {answer}")
            self.assertEqual(self.pair()["Error"], error)
            self.assertEqual(self.session_error(), "InvalidHostID")
        self.tell("trust granted")
        self.assertNotIn("Error", self.pair())

    def test_needs_an_unlocked_phone(self):
        self.tell("lock")
        self.assertEqual(self.pair()["Error"], "PasswordProtected")
        self.tell("unlock")
        self.assertNotIn("Error", self.pair())

    def test_ends_when_the_phone_forgets_or_the_host_unpairs(self):
        self.pair()
        self.tell("forget")
        self.assertEqual(self.session_error(), "InvalidHostID")
        self.pair()
        self.assertEqual(self.lockdown().call("ValidatePair", PairRecord={"HostID": "a host"}).get("Error"), None)
        self.assertNotIn("Error", self.lockdown().call("Unpair", PairRecord={"HostID": "a host"}))
        self.assertEqual(self.session_error(), "InvalidHostID")
        for request in ("Unpair", "ValidatePair"):
            reply = self.lockdown().call(request, PairRecord={"HostID": "a host"})
            self.assertEqual(reply["Error"], "InvalidHostID")


class Services(PhoneCase):
    def test_need_a_session(self):
        lockdown = self.lockdown()
        self.assertEqual(lockdown.call("StartService", Service="com.apple.afc")["Error"], "SessionInactive")
        lockdown.start_session()
        self.assertIn("Port", lockdown.call("StartService", Service="com.apple.afc"))
        lockdown.call("StopSession")
        self.assertEqual(lockdown.call("StartService", Service="com.apple.afc")["Error"], "SessionInactive")

    def test_need_an_unlocked_phone(self):
        self.tell("lock")
        self.assertEqual(self.start_service()["Error"], "PasswordProtected")
        self.tell("unlock")
        self.assertNotIn("Error", self.start_service())

    def test_sessions_may_need_an_unlocked_phone_too(self):
        self.tell("lock sessions")
        self.assertEqual(self.lockdown().start_session()["Error"], "PasswordProtected")
        self.tell("lock")
        self.assertNotIn("Error", self.lockdown().start_session())

    def test_may_be_refused(self):
        self.tell("refuse com.apple.afc InvalidService")
        self.assertEqual(self.start_service()["Error"], "InvalidService")
        self.tell("allow com.apple.afc")
        self.assertNotIn("Error", self.start_service())

    def test_others_do_not_exist(self):
        self.assertEqual(self.start_service("com.apple.afc2")["Error"], "InvalidService")

    def test_a_request_may_be_cut_stalled_emptied_and_failed(self):
        lockdown = self.lockdown()
        self.tell("fault error service=lockdown operation=StartSession name=Busy")
        self.assertEqual(lockdown.start_session()["Error"], "Busy")
        self.tell("fault stall service=lockdown at=1")
        lockdown.ask("QueryType")
        self.tell("wait stalled 1")
        self.tell("release")
        self.assertIn("Type", lockdown.reply())
        self.tell("fault empty service=lockdown")
        with self.assertRaises(plistlib.InvalidFileException):
            lockdown.call("QueryType")
        self.tell("fault cut service=lockdown reply-bytes=30")
        with self.assertRaises(Ended) as ended:
            lockdown.call("QueryType")
        self.assertEqual(ended.exception.args, (26,))

    def test_a_farewell_ends_the_connection(self):
        lockdown = self.lockdown()
        lockdown.call("Goodbye")
        with self.assertRaises(Ended):
            lockdown.call("QueryType")


class Encrypted(PhoneCase):
    PHONES = [{"tls": True}]

    def test_sessions_and_services_are(self):
        self.write("1.JPG", b"picture")
        afc = self.afc()
        self.assertIsInstance(afc.connection, ssl.SSLSocket)
        self.assertEqual(afc.read(afc.open(b"/1.JPG"), 100), b"picture")

    def test_a_stopped_session_goes_on_without(self):
        lockdown = self.lockdown()
        self.assertTrue(lockdown.start_session()["EnableSessionSSL"])
        lockdown.call("StopSession")
        lockdown.connection = lockdown.connection.unwrap()
        self.assertIn("Type", lockdown.call("QueryType"))
        self.assertNotIn("Error", lockdown.start_session())

    def test_hosts_without_the_certificate_of_their_pairing_get_nothing(self):
        reply = self.start_service()
        connection = self.connect(reply["Port"])
        self.phone.complain = lambda text: None
        with self.assertRaises((Ended, ssl.SSLError, ConnectionError)):
            Afc(self.tls(connection, certificate=None)).names(b"/")

    def test_cuts_are_sudden(self):
        self.write("1.JPG", b"picture" * 100000)
        afc = self.afc()
        handle = afc.open(b"/1.JPG")
        self.tell("fault cut reply-bytes=300040")
        with self.assertRaises(Ended) as ended:
            afc.read(handle, 700000)
        self.assertEqual(ended.exception.args, (300000,))

    def test_a_handshake_may_be_cut(self):
        self.tell("fault cut service=tls at=2")
        reply = self.start_service()
        with self.assertRaises((ssl.SSLError, ConnectionError)):
            self.tls(self.connect(reply["Port"]))

    def test_a_handshake_may_be_stalled(self):
        self.write("1.JPG", b"picture")
        self.tell("fault stall service=tls at=2")
        found = []
        host = threading.Thread(target=lambda: found.append(self.afc().names(b"/")))
        host.start()
        self.tell("wait stalled 1")
        self.assertEqual(found, [])
        self.tell("release")
        host.join()
        self.assertEqual(found, [[b".", b"..", b"1.JPG"]])

    def test_pairing_makes_a_host_of_its_own_authority_known(self):
        self.tell("forget")
        self.assertEqual(self.lockdown().start_session()["Error"], "InvalidHostID")
        record = self.phone.keys.pair_record(HOST_ID, "a computer")
        self.lockdown().call("Pair", PairRecord=record)
        self.assertNotIn("Error", self.lockdown().start_session())


unittest.main()

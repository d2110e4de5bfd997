import socket
import unittest

from phone_case import OTHER_UDID, Afc, Ended, Lockdown, PhoneCase


class NetworkCase(PhoneCase):
    def setUp(self):
        super().setUp()
        for phone in self.daemon.phones:
            if phone.network is not None:
                self.addCleanup(phone.network.close)

    def listed(self):
        return [device["Properties"] for device in self.mux_call({"MessageType": "ListDevices"})["DeviceList"]]

    def addresses(self):
        found = [properties["NetworkAddress"] for properties in self.listed() if "NetworkAddress" in properties]
        return [socket.inet_ntoa(address[4:8]) for address in found]

    def over_network(self, port, number=0):
        connection = socket.create_connection((self.addresses()[number], port), timeout=10)
        self.addCleanup(connection.close)
        return connection

    def start_over_network(self, number=0):
        guard = Lockdown(self.over_network(62078, number), self.tls)
        self.assertNotIn("Error", guard.start_session())
        return guard.call("StartService", Service="com.apple.afc")["Port"]


class OnTheNetworkOnly(NetworkCase):
    PHONES = [{"usb": False, "network": True}, {"usb": False, "network": True, "udid": OTHER_UDID}]

    def test_phones_are_announced_with_addresses_of_their_own(self):
        self.assertEqual([device["ConnectionType"] for device in self.listed()], ["Network", "Network"])
        self.assertEqual(len(set(self.addresses())), 2)
        for device in self.listed():
            self.assertEqual((len(device["NetworkAddress"]), device["NetworkAddress"][:2]), (16, b"\x10\x02"))

    def test_each_answers_at_its_address(self):
        for number, phone in enumerate(self.daemon.phones):
            guard = Lockdown(self.over_network(62078, number), self.tls)
            self.assertEqual(guard.call("GetValue", Key="UniqueDeviceID")["Value"], phone.udid)

    def test_a_started_service_takes_one_connection(self):
        self.write("a", b"content")
        port = self.start_over_network()
        afc = Afc(self.over_network(port))
        self.assertEqual(afc.read(afc.open(b"/a"), 100), b"content")
        self.tell("wait connections 1")
        with self.assertRaises((OSError, Ended)):
            Afc(self.over_network(port)).names(b"/")

    def test_the_daemon_does_not_lead_there(self):
        request = {"MessageType": "Connect", "DeviceID": self.phone.device_id, "PortNumber": socket.htons(62078)}
        self.assertEqual(self.mux_call(request)["Number"], 2)

    def test_leaving_cuts_connections_and_refuses_others(self):
        guard = Lockdown(self.over_network(62078), self.tls)
        guard.call("QueryType")
        address = self.addresses()[0]
        self.tell("detach")
        with self.assertRaises(Ended):
            guard.reply()
        self.assertEqual(len(self.listed()), 1)
        with socket.create_connection((address, 62078), timeout=10) as connection, self.assertRaises(Ended):
            Lockdown(connection, self.tls).call("QueryType")
        self.tell("attach")
        self.assertEqual(self.addresses()[0], address)


class BothWays(NetworkCase):
    PHONES = [{"network": True}]

    def test_are_listed_under_one_name_and_two_numbers(self):
        usb, network = self.listed()
        self.assertEqual([usb["ConnectionType"], network["ConnectionType"]], ["USB", "Network"])
        self.assertEqual(usb["SerialNumber"], network["SerialNumber"])
        self.assertNotEqual(usb["DeviceID"], network["DeviceID"])

    def test_can_be_left_one_at_a_time(self):
        self.write("a")
        usb = self.afc()
        network = Afc(self.over_network(self.start_over_network()))
        network.names(b"/")
        self.tell("detach network")
        with self.assertRaises(Ended):
            network.names(b"/")
        self.assertIn(b"a", usb.names(b"/"))
        self.assertEqual([device["ConnectionType"] for device in self.listed()], ["USB"])
        self.tell("attach network")
        self.tell("detach usb")
        with self.assertRaises(Ended):
            usb.names(b"/")
        self.assertEqual([device["ConnectionType"] for device in self.listed()], ["Network"])


class OnUsbOnly(NetworkCase):
    def test_has_no_other_way(self):
        self.assertTrue(self.control.answer("detach network").startswith("error"))


unittest.main()

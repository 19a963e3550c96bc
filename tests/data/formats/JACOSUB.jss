#T100

# Directive entries
#D
0:00:12.40 0:00:15.20 {NTP} Good evening, Inspector.
0:00:16.00 0:00:19.80 {NTP} Nobody leaves this house\nuntil the storm has passed.
0:00:20.00 0:00:22.60 {NTP} Is that an order?
1:00:05.40 1:00:08.00 {NTP} Où étiez-vous\nà minuit, señor Müller ?

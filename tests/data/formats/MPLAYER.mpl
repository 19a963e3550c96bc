310,380,0,Good evening, Inspector.
400,495,0,Nobody leaves this house|until the storm has passed.
500,565,0,Is that an order?
90135,90200,0,Où étiez-vous|à minuit, señor Müller ?
